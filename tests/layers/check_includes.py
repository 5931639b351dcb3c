#!/usr/bin/env python3
"""Fails when a file under src/ includes from a folder it must not see.

The folders of src/ stand in layers, bottom to top. A file may include from
its own folder, from any folder of a lower layer, and from a folder that
comes earlier in its own layer: inside a layer, includes run one way only.
Qt headers are for the Qt backends alone.

    check_includes.py SRC_DIR

Prints one line per offending include, "file:line: includes X (folder A may
not see folder B)", and exits 1 when there is any, 0 otherwise.
"""
import os
import re
import sys

# Bottom to top; each row is one layer and its folders in their one-way order.
LAYERS = [
    ('platform', ['platform/utility', 'platform/exec', 'platform/dos', 'platform/locale',
                  'platform/display', 'platform/display/headless', 'platform/display/qt',
                  'platform/clip', 'platform/clip/qt', 'platform/icon', 'platform/printer',
                  'platform/rexx']),
    ('services', ['services']),
    ('record', ['text/record']),
    ('protocol', ['frame/protocol']),
    ('drawing', ['text/render', 'text/lines']),
    ('window', ['frame/window', 'requesters']),
    ('edit', ['text/edit']),
    ('files', ['files']),
    ('subsystems', ['search', 'macro', 'config', 'services/rexx', 'builtins']),
    ('input', ['text/input']),
    ('process', ['frame/process']),
    ('app', ['app']),
]

# The folders that may include Qt.
QT_FOLDERS = {'platform/display/qt', 'platform/clip/qt'}

RANK = {}
for layer_index, (_, folders) in enumerate(LAYERS):
    for folder_index, folder in enumerate(folders):
        RANK[folder] = (layer_index, folder_index)

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
QT_HEADER = re.compile(r'^Q[A-Za-z]*(/|$)|^qt[a-z]*/')


def folder_of(path):
    """The deepest folder of the table that holds `path` (relative to src)."""
    best = None
    for folder in RANK:
        if path == folder or path.startswith(folder + '/'):
            if best is None or len(folder) > len(best):
                best = folder
    return best


def may_see(own, other):
    if own == other:
        return True
    own_layer, own_place = RANK[own]
    other_layer, other_place = RANK[other]
    if other_layer != own_layer:
        return other_layer < own_layer
    return other_place < own_place


def check(src):
    faults = []
    for directory, _, names in sorted(os.walk(src)):
        for name in sorted(names):
            if not name.endswith(('.h', '.cpp')):
                continue
            path = os.path.join(directory, name)
            relative = os.path.relpath(path, src)
            own = folder_of(relative)
            if own is None:
                faults.append(f'{relative}: folder not in the table of layers')
                continue
            with open(path, encoding='utf-8', errors='replace') as stream:
                for number, line in enumerate(stream, 1):
                    match = INCLUDE.match(line)
                    if not match:
                        continue
                    quote, header = match.groups()
                    where = f'{relative}:{number}: includes {header}'
                    if quote == '<':
                        if QT_HEADER.match(header) and own not in QT_FOLDERS:
                            faults.append(f'{where} (only the Qt backends may see Qt)')
                        continue
                    other = folder_of(header)
                    if other is None:
                        faults.append(f'{where} (not a folder of the table of layers)')
                    elif not may_see(own, other):
                        faults.append(f'{where} (folder {own} may not see folder {other})')
    return faults


def main():
    if len(sys.argv) != 2:
        print('usage: check_includes.py SRC_DIR', file=sys.stderr)
        return 2
    faults = check(sys.argv[1])
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == '__main__':
    sys.exit(main())
