// Prints the translators' template of the program's messages on standard
// output, in UTF-8. Each message except 0 gets an entry whose msgctxt is its
// catalog number (id - 1) and whose msgid is its built-in English text;
// formats are flagged c-format so that msgfmt checks their translations.

#include <cstdio>
#include <string>

#include "platform/locale/printf_conversions.h"
#include "services/builtin_messages.h"
#include "services/messages.h"

namespace {

// A built-in text as a PO string literal: UTF-8, with \\, \" and \n escaped.
std::string PoLiteral(const char* text)
{
    std::string literal = "\"";
    for (const char* p = text; *p != '\0'; ++p) {
        const auto c = static_cast<unsigned char>(*p);
        if (c == '\\' || c == '"') {
            literal += '\\';
            literal += static_cast<char>(c);
        } else if (c == '\n') {
            literal += "\\n";
        } else if (c >= 0x80) {
            literal += static_cast<char>(0xC0 | (c >> 6));
            literal += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            literal += static_cast<char>(c);
        }
    }
    return literal + "\"";
}

} // namespace

int main()
{
    std::printf("# Messages of the Tavrel text editor.\n"
                "# msgctxt is the message's number in the catalog; msgid is its English text.\n"
                "# Keep every %% conversion of a c-format entry as it is, in the same order.\n"
                "# A _ marks the shortcut key of a gadget label.\n"
                "msgid \"\"\n"
                "msgstr \"\"\n"
                "\"Project-Id-Version: tavrel\\n\"\n"
                "\"Language: \\n\"\n"
                "\"MIME-Version: 1.0\\n\"\n"
                "\"Content-Type: text/plain; charset=UTF-8\\n\"\n"
                "\"Content-Transfer-Encoding: 8bit\\n\"\n"
                "\"X-Catalog-Version: %d\\n\"\n",
        MessageCatalogVersion);
    for (int id = 1; id < MessageCount; ++id) {
        const char* text = GetBuiltInString(MessageId{id});
        std::printf("\n#. message %d\n", id);
        if (!SamePrintfConversions(text, ""))
            std::printf("#, c-format\n");
        std::printf("msgctxt \"%d\"\nmsgid %s\nmsgstr \"\"\n", id - 1, PoLiteral(text).c_str());
    }
    return 0;
}
