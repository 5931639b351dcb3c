// A short run of the fuzzer of VAL and StrToDate; the sanitizer build runs
// it too.
#include "macro_test_support.h"
#include "value_readers_fuzz.h"

TEST(ValueReadersFuzz, MutatedNumbersAndDatesKeepTheirPromises)
{
    TextRecord* record = NewMacroRecord();
    ValueReaderFuzzer fuzzer(16);
    std::string fault;
    fuzzer.Run(record, 20000, &fault);
    EXPECT_EQ(fault, "");
    FreeMacroRecord(record);
}
