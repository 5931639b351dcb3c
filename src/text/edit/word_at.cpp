#include "text/edit/edit_current_line.h"
#include "text/record/char_class.h"

namespace {

bool IsWordLetter(char c)
{
    return (CharClass[static_cast<unsigned char>(c)] & CharWordLetter) != 0;
}

} // namespace

int32_t WordAt(const char* text, char* buffer)
{
    int32_t length = 0;
    if (IsWordLetter(text[0]) && text[0] != '-') {
        do {
            buffer[length] = text[length];
            ++length;
            // "l'" and "qu'" end at their apostrophe: the elision is a word
            // of its own.
            if ((length == 2 || length == 3) && text[length - 1] == '\'')
                break;
        } while (length < WordAtLimit && IsWordLetter(text[length]));
    } else {
        while (text[length] != '\0') {
            buffer[length] = text[length];
            ++length;
            if (length >= WordAtLimit || IsWordLetter(text[length]))
                break;
        }
    }
    buffer[length] = '\0';
    return length;
}
