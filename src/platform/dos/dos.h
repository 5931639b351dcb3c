#pragma once
// The dos layer: paths and volume names, wildcard patterns and directory
// matching, argument templates, numbers, file notes, date stamps, dates as text and the
// errors of all of them. Names and behaviour are the ones the editor's
// code is written against, mapped onto Linux paths and files.
#include "platform/dos/dates.h"
#include "platform/dos/datestamp.h"
#include "platform/dos/errors.h"
#include "platform/dos/filenotes.h"
#include "platform/dos/match.h"
#include "platform/dos/matchfirst.h"
#include "platform/dos/numbers.h"
#include "platform/dos/paths.h"
#include "platform/dos/patterns.h"
#include "platform/dos/readargs.h"
#include "platform/dos/volumes.h"
