#include "text/input/bound_keys.h"

#include "config/key_map.h"
#include "config/key_requests.h"
#include "platform/display/keys.h"
#include "requesters/file_reports.h"

namespace {

constexpr uint16_t QualifierKeys = IEQUALIFIER_SHIFT | IEQUALIFIER_CONTROL | IEQUALIFIER_ALT;

uint8_t FunctionKeyNumber(uint16_t code)
{
    if (code == RAWKEY_F11)
        return 11;
    if (code == RAWKEY_F12)
        return 12;
    return static_cast<uint8_t>(code - RAWKEY_F1 + 1);
}

} // namespace

void PressFunctionKey(TextRecord* record, const IntuiMessage& message)
{
    bool locked = false;
    if (!RunBoundKey(record, FunctionKeyNumber(message.Code), QualifierToIndex(message.Qualifier), &locked) && locked)
        ErrorRequester(record, MessageId::KeysAccessDenied);
}

bool RunBoundCharacter(TextRecord* record, const IntuiMessage& message)
{
    if (!(message.Qualifier & QualifierKeys))
        return false;
    char text[16];
    if (KeyToText(&message, text, sizeof text, 0) == 0)
        return false;
    bool locked = false;
    return RunBoundKey(record, static_cast<uint8_t>(text[0]), QualifierToIndex(message.Qualifier), &locked);
}
