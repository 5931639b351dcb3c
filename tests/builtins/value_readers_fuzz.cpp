#include "value_readers_fuzz.h"

#include "platform/dos/dates.h"
#include "shown_value.h"

#include <iterator>

namespace {

const char* const NumberSeeds[] = {
    "  $1F", "-7", "+&B101", "0X1F", "12abc", "&O17", "&D99", "&HFFFFFFFF", "4294967297", "\t-2147483648", "$", "&",
};
const char* const DateSeeds[] = {
    "01-Jan-78", "31-Dec-77", "29-Feb-2000", " 7-mar-26 ", "31-Dec-9999", "01-Jan-0001", "12:34:56", "0:00", "23:59",
};

// A string literal of the language holding `text`.
std::string Quoted(const std::string& text)
{
    std::string quoted = "\"";
    for (const char c : text)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

bool ReadDateAndTime(const char* date, const char* time, struct DateStamp* stamp)
{
    struct DateTime read{{}, nullptr, const_cast<char*>(date), const_cast<char*>(time)};
    if (!StrToDate(&read))
        return false;
    *stamp = read.dat_Stamp;
    return true;
}

bool ShowDateAndTime(const struct DateStamp& stamp, std::string* date, std::string* time)
{
    char dateText[LEN_DATSTRING], timeText[LEN_DATSTRING];
    struct DateTime shown{stamp, nullptr, dateText, timeText};
    if (!DateToStr(&shown))
        return false;
    *date = dateText;
    *time = timeText;
    return true;
}

} // namespace

std::string ValueReaderFuzzer::Mutated(const char* const* seeds, size_t seedCount)
{
    std::string text = seeds[Below(uint32_t(seedCount))];
    for (uint32_t edits = Below(4); edits > 0; --edits) {
        const uint32_t at = Below(uint32_t(text.size()) + 1);
        switch (Below(4)) {
        case 0: text.insert(at, seeds[Below(uint32_t(seedCount))]); break;
        case 1:
            if (at < text.size())
                text.erase(at, 1 + Below(3));
            break;
        case 2: text.insert(at, 1, "0123456789-:$&+ aJZ"[Below(19)]); break;
        default:
            if (at < text.size())
                text[at] = static_cast<char>(1 + Below(255));
        }
    }
    return text;
}

void ValueReaderFuzzer::CheckNumberRoundTrips(TextRecord* record, std::string* fault)
{
    const auto number = static_cast<int32_t>(random_());
    const std::string written = std::to_string(number);
    for (const char* form : {"VAL(STR(#))", "VAL(\"$\"+UPPER(STRHEX(#)))", "VAL(\"&B\"+STRBIN(#))",
                             "VAL(\" \"+STR(#)+\"x\")"}) {
        std::string command = form;
        command.replace(command.find('#'), 1, written);
        const std::string read = RunCommand(record, command);
        if (read != written && fault->empty())
            *fault = command + " gave " + read;
    }
}

void ValueReaderFuzzer::CheckVal(TextRecord* record, std::string* fault)
{
    const std::string text = Mutated(NumberSeeds, std::size(NumberSeeds));
    const std::string read = RunCommand(record, "VAL(" + Quoted(text) + ")");
    const bool fine = read == "#211" || read == "#206" || (read[0] != '#' && read[0] != '"' && read != "?");
    // A letter in lower case is never part of a number, so it changes nothing.
    const std::string extended = RunCommand(record, "VAL(" + Quoted(text + "x") + ")");
    if ((!fine || extended != read) && fault->empty())
        *fault = "VAL(" + Quoted(text) + ") gave " + read + ", with x behind it " + extended;
}

void ValueReaderFuzzer::CheckDate(std::string* fault)
{
    const std::string date = Mutated(DateSeeds, std::size(DateSeeds));
    const std::string time = Mutated(DateSeeds, std::size(DateSeeds));
    struct DateStamp stamp;
    if (!ReadDateAndTime(date.c_str(), time.c_str(), &stamp))
        return;
    // Two-digit years name 1978 to 2077 only, so what is compared is the
    // text shown before and after reading it back.
    std::string shownDate, shownTime, againDate, againTime;
    struct DateStamp reread;
    const bool fine = ShowDateAndTime(stamp, &shownDate, &shownTime)
                      && ReadDateAndTime(shownDate.c_str(), shownTime.c_str(), &reread)
                      && ShowDateAndTime(reread, &againDate, &againTime) && againDate == shownDate
                      && againTime == shownTime;
    if (!fine && fault->empty())
        *fault = "\"" + date + "\" \"" + time + "\" shown as " + shownDate + " " + shownTime + " doesn't read back";
}

void ValueReaderFuzzer::Run(TextRecord* record, long count, std::string* fault)
{
    for (long done = 0; done < count; ++done) {
        CheckNumberRoundTrips(record, fault);
        CheckVal(record, fault);
        CheckDate(fault);
    }
}
