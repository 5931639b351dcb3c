#pragma once
// Desktop keys to the raw keyboard the editor is written for: a raw key
// code, a qualifier word and the characters of the key in ISO 8859-1.
//
// - Keys of the editor's key tables (cursor keys, Return, Enter, Tab, Del,
//   Help, F1 to F12, ...) get their fixed raw codes and the characters of
//   the default layout; Enter and the keys of the numeric pad carry the
//   numeric pad qualifier.
// - A printable key gets the raw code of its place on the default layout
//   (by its unshifted character); a character that has no such place gets
//   code 0x30, still a character key.
// - The characters come from the desktop layout, by layer (plain, Shift,
//   Alt, Shift+Alt; see KeyChars): the layer of the keys held is what the
//   desktop typed without Ctrl, the plain layer the key's own character,
//   the others are derived from it (upper case, the shifted character of
//   the place, the Alt layers repeating the plain ones). Ctrl is left to
//   KeyToText. Characters outside ISO 8859-1 are dropped.
// - Lone modifier keys and keys unknown to the editor give `known` false.
#include "platform/display/intuition.h"

#include <Qt>

#include <QString>

#include <cstdint>

struct TranslatedKey {
    bool known = false;
    uint16_t code = 0;        // without the key-up bit
    uint16_t qualifier = 0;
    KeyChars keys;
};

// Qualifier bits of the keyboard state; mouse button bits are added by the
// caller that knows the buttons.
uint16_t QualifierFromModifiers(Qt::KeyboardModifiers modifiers);

TranslatedKey TranslateKey(int qtKey, Qt::KeyboardModifiers modifiers, const QString& text,
                           bool autoRepeat);
