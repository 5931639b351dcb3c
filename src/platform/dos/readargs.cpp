#include "platform/dos/readargs.h"

#include "platform/dos/errors.h"
#include "platform/dos/numbers.h"

#include <cctype>
#include <cstring>
#include <strings.h>

namespace {

struct TemplateItem {
    std::vector<std::string> names;
    bool isSwitch = false, keyword = false, number = false, required = false, multiple = false,
         rest = false;
};

struct Word {
    std::string text;
    bool quoted = false;
    std::string rest; // the line from this word's start on, for /F
};

bool ParseTemplate(const char* text, std::vector<TemplateItem>* items) {
    int multiples = 0;
    const char* p = text;
    if (*p == '\0') return true;
    for (;;) {
        TemplateItem item;
        std::string name;
        for (; *p && *p != ',' && *p != '/'; ++p) {
            if (*p == '=') {
                if (name.empty()) return false;
                item.names.push_back(name);
                name.clear();
            } else {
                name += *p;
            }
        }
        if (name.empty()) return false;
        item.names.push_back(name);
        while (*p == '/') {
            switch (std::toupper(static_cast<unsigned char>(p[1]))) {
            case 'S': item.isSwitch = true; break;
            case 'K': item.keyword = true; break;
            case 'N': item.number = true; break;
            case 'A': item.required = true; break;
            case 'M': item.multiple = true; break;
            case 'F': item.rest = true; break;
            default: return false;
            }
            p += 2;
        }
        if (item.isSwitch && (item.number || item.multiple || item.rest || item.required)) return false;
        if (item.rest && item.multiple) return false;
        multiples += item.multiple;
        items->push_back(std::move(item));
        if (*p == '\0') break;
        if (*p != ',') return false;
        ++p;
    }
    return multiples <= 1;
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// Splits a line into words. A word "NAME=" directly followed by a quote
// stays a word of its own, so that NAME="a b" reads as keyword and value.
bool SplitLine(const char* line, std::vector<Word>* words) {
    const char* p = line;
    for (;;) {
        while (IsBlank(*p)) ++p;
        if (*p == '\0') return true;
        Word word;
        word.rest = p;
        while (!word.rest.empty() && IsBlank(word.rest.back())) word.rest.pop_back();
        if (*p == '"') {
            word.quoted = true;
            for (++p;; ++p) {
                if (*p == '\0') return false;
                if (*p == '"') break;
                if (*p == '*' && p[1] != '\0') {
                    ++p;
                    char c = static_cast<char>(std::toupper(static_cast<unsigned char>(*p)));
                    word.text += c == 'N' ? '\n' : c == 'E' ? '\x1b' : *p;
                } else {
                    word.text += *p;
                }
            }
            ++p;
        } else {
            while (*p && !IsBlank(*p)) {
                word.text += *p++;
                if (word.text.back() == '=' && *p == '"') break;
            }
        }
        words->push_back(std::move(word));
    }
}

// The item named `name`, or -1.
int FindKeyword(const std::vector<TemplateItem>& items, const std::string& name) {
    for (size_t i = 0; i < items.size(); ++i)
        for (const std::string& itemName : items[i].names)
            if (strcasecmp(itemName.c_str(), name.c_str()) == 0) return static_cast<int>(i);
    return -1;
}

class ArgReader {
public:
    ArgReader(const std::vector<TemplateItem>& items, RDArgs* args) : items_(items), args_(args) {
        args_->items.assign(items.size(), ArgResult{});
    }

    // Gives 0 or the error code.
    long Read(const std::vector<Word>& words) {
        for (size_t w = 0; w < words.size(); ++w) {
            const Word& word = words[w];
            size_t equals = word.quoted ? std::string::npos : word.text.find('=');
            int index = word.quoted ? -1 : FindKeyword(items_, word.text.substr(0, equals));
            long error = 0;
            if (index >= 0)
                error = Keyword(index, words, &w, equals);
            else
                error = Positional(words, &w);
            if (error != 0) return error;
        }
        return Finish();
    }

private:
    const std::vector<TemplateItem>& items_;
    RDArgs* args_;
    size_t nextPositional_ = 0;

    long Store(int index, const std::string& value) {
        const TemplateItem& item = items_[index];
        ArgResult& result = args_->items[index];
        long number = 0;
        if (item.number) {
            long used = StrToLong(value.c_str(), &number);
            if (used < 0 || static_cast<size_t>(used) != value.size()) return ERROR_BAD_NUMBER;
        }
        result.present = true;
        if (item.multiple) {
            result.strings.push_back(value);
            if (item.number) result.numbers.push_back(number);
        } else {
            result.string = value;
            result.number = number;
        }
        return 0;
    }

    long Keyword(int index, const std::vector<Word>& words, size_t* w, size_t equals) {
        const TemplateItem& item = items_[index];
        ArgResult& result = args_->items[index];
        const Word& word = words[*w];
        bool hasValue = equals != std::string::npos;
        if (result.present && !item.multiple) return ERROR_TOO_MANY_ARGS;
        if (item.isSwitch) {
            if (hasValue) return ERROR_KEY_NEEDS_ARG;
            result.present = true;
            return 0;
        }
        bool valueInWord = hasValue && equals + 1 < word.text.size();
        if (item.rest) {
            std::string rest;
            if (hasValue)
                rest = word.rest.substr(word.rest.find('=') + 1);
            else if (*w + 1 < words.size())
                rest = words[*w + 1].rest;
            while (!rest.empty() && IsBlank(rest.front())) rest.erase(0, 1);
            if (rest.empty()) return ERROR_KEY_NEEDS_ARG;
            *w = words.size();
            return Store(index, rest);
        }
        if (valueInWord) return Store(index, word.text.substr(equals + 1));
        if (*w + 1 >= words.size()) return ERROR_KEY_NEEDS_ARG;
        return Store(index, words[++*w].text);
    }

    // A word that is no keyword goes to the next item that takes words by
    // position. A /M item, once reached, takes all that follow.
    long Positional(const std::vector<Word>& words, size_t* w) {
        while (nextPositional_ < items_.size()) {
            const TemplateItem& item = items_[nextPositional_];
            bool taken = args_->items[nextPositional_].present && !item.multiple;
            if (!item.isSwitch && !item.keyword && !taken) break;
            ++nextPositional_;
        }
        if (nextPositional_ >= items_.size()) return ERROR_TOO_MANY_ARGS;
        int index = static_cast<int>(nextPositional_);
        const TemplateItem& item = items_[index];
        if (item.rest) {
            std::string rest = words[*w].rest;
            *w = words.size();
            return Store(index, rest);
        }
        if (!item.multiple) ++nextPositional_;
        return Store(index, words[*w].text);
    }

    // Required items behind the /M item get their words from its end, the
    // last item the last word.
    long Finish() {
        for (size_t m = 0; m < items_.size(); ++m) {
            if (!items_[m].multiple || items_[m].keyword) continue;
            ArgResult& many = args_->items[m];
            for (size_t i = items_.size(); i-- > m + 1;) {
                const TemplateItem& item = items_[i];
                if (!item.required || item.isSwitch || item.keyword || args_->items[i].present) continue;
                if (many.strings.empty()) return ERROR_REQUIRED_ARG_MISSING;
                std::string value = many.strings.back();
                many.strings.pop_back();
                if (items_[m].number) many.numbers.pop_back();
                if (long error = Store(static_cast<int>(i), value)) return error;
            }
            many.present = !many.strings.empty();
        }
        for (size_t i = 0; i < items_.size(); ++i)
            if (items_[i].required && !args_->items[i].present) return ERROR_REQUIRED_ARG_MISSING;
        return 0;
    }
};

bool Run(const char* argTemplate, const std::vector<Word>& words, RDArgs* args) {
    std::vector<TemplateItem> items;
    if (!ParseTemplate(argTemplate, &items)) {
        args->items.clear();
        SetIoErr(ERROR_BAD_TEMPLATE);
        return false;
    }
    ArgReader reader(items, args);
    if (long error = reader.Read(words)) {
        args->items.clear();
        SetIoErr(error);
        return false;
    }
    return true;
}

} // namespace

bool ReadArgs(const char* argTemplate, const char* line, RDArgs* args) {
    std::vector<Word> words;
    if (!SplitLine(line, &words)) {
        args->items.clear();
        SetIoErr(ERROR_UNMATCHED_QUOTES);
        return false;
    }
    return Run(argTemplate, words, args);
}

bool ReadArgs(const char* argTemplate, int argc, const char* const* argv, RDArgs* args) {
    std::vector<Word> words(argc > 0 ? static_cast<size_t>(argc) : 0);
    for (size_t i = words.size(); i-- > 0;) {
        words[i].text = argv[i];
        words[i].rest = i + 1 < words.size() ? words[i].text + " " + words[i + 1].rest : words[i].text;
    }
    return Run(argTemplate, words, args);
}
