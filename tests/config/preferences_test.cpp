// The preferences file: its bytes written back, the reader's tolerances,
// the file on disk, and a failed save that must leave the old file whole.
#include "config/read_preferences.h"
#include "config/write_preferences.h"
#include "frame/window/report.h"
#include "prefs_fixture.h"
#include "prefs_fuzz.h"
#include "text/record/create_text_record.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char ExampleFile[] = "TavrelPrefs 1.0\n[Menus_ARexx]\nScript0=Hello\n\n[Police]\nFont=topaz.font\nSize=8\n\n"
                           "[Window]\nX=0\nY=1\nWidth=640\nHeight=199\n\n[Modes]\nSaveTabs=1\nBackup=0\nSave_icon=0\n"
                           "FullName=1\nTabs=4\nRequesters=0\nMaxLineLength=255\n\n[Macros]\nF1=\"GOTO(1,1)\"\n\n"
                           "[Menus]\nBAR\nTop=GOTO(1,1)\n";

std::vector<std::string> Lines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

class PreferencesTest : public ::testing::Test {
protected:
    // The result and the written lines that differ from a file of the
    // defaults, section headers and empty lines left out.
    std::string Changes(const std::string& body)
    {
        state_.Reset();
        const std::string defaults = state_.Format();
        const int result = state_.Parse("TavrelPrefs 1.0\n" + body);
        const std::vector<std::string> before = Lines(defaults);
        const std::set<std::string> old(before.begin(), before.end());
        std::string out = std::to_string(result);
        for (const std::string& line : Lines(state_.Format())) {
            if (!line.empty() && line[0] != '[' && !old.count(line))
                out += " | " + line;
        }
        return out;
    }

    PrefsState state_;
};

TEST_F(PreferencesTest, TheExampleFileIsWrittenBackByteForByte)
{
    EXPECT_EQ(state_.Parse(ExampleFile), 0);
    EXPECT_EQ(state_.Format(), ExampleFile);
}

TEST_F(PreferencesTest, WithoutFontKeysOrMenusOnlyTheModesFollowTheLabels)
{
    Settings.FontName[0] = 0;
    EXPECT_EQ(state_.Format(), "TavrelPrefs 1.0\n[Menus_ARexx]\n\n[Modes]\nSaveTabs=1\nBackup=0\nSave_icon=0\n"
                               "FullName=1\nTabs=4\nRequesters=0\nMaxLineLength=255\n");
}

TEST_F(PreferencesTest, ReaderTolerances)
{
    struct Row {
        const char* Body;
        const char* Expected;
    };
    const Row rows[] = {
        {"", "0"},
        {"[modes]\ntabs=300\n", "0 | Tabs=44"},
        {"[Police]\nSize=5\n", "0"},
        {"[Police]\nSize=6\nFont=courier.font\n", "0 | Font=courier.font | Size=6"},
        {"[Police]\nSize=99999999999\n", "0"},
        {"[Modes]\nMaxLineLength=79\nMaxLineLength=32768\n", "0"},
        {"[Modes]\nMaxLineLength=80\n", "0 | MaxLineLength=80"},
        {"[Modes]\nMaxLineLength=32767\n", "0 | MaxLineLength=32767"},
        {"[Modes]\nRequesters=4\n", "0"},
        {"[Modes]\nRequesters=-1\n", "0"},
        {"[Modes]\nRequesters=3\n", "0 | Requesters=3"},
        {"[Modes]\nSaveTabs\n", "0 | SaveTabs=0"},
        {"[Modes]\nSaveTabsX=1\n", "0 | SaveTabs=0"},
        {"[Modes]\nbackup=7\nSAVE_ICON=1\n", "0 | Backup=1 | Save_icon=1"},
        {"[Modes]\nToolbar=bar\n", "0 | Toolbar=bar"},
        {"[Window]\nx=-5\nY=1\nWidth=70000\nHeight=abc\n", "0 | X=-5 | Width=4464"},
        {"[Window]X=3\n", "0 | X=3"},
        {"[Window] X=3\n", "0"},
        {"[Menus_ARexx]\nScript3=\n", "0 | Script3=ARexx..."},
        {"[Menus_ARexx]\nScript19=A label longer than eleven\n", "0 | Script19=A label lon"},
        {"[Menus_ARexx]\nscript3=x\n", "1"},
        {"[Menus_ARexx]\nScript20=x\n", "1"},
        {"[Menus_ARexx]\nScript3 =x\n", "1"},
        {"Tabs=9\n[Modes]\n", "0"},
        {"[ORTHO]\nTabs=9\n", "0"},
        {"[Bogus]\n", "0"},
        {"[Modes]\n[Bogus]\nTabs=9\n", "0 | Tabs=9"},
        {"[MACROS]\nshift-F3=\"a\"\n", "0 | Shift-F3=\"a\""},
        {"[FunctionKeys]\nF2=\"say \"hi\"\"\n", "0 | F2=\"say \"hi\"\""},
        {"[Macros]F4=\"x\"\n", "0 | F4=\"x\""},
        {"[Macros] F4=\"x\"\n", "1"},
        {"[Macros]\nAlt-==\"text\"\n", "1"},
        {"[Macros]\na=\"no qualifier\"\n", "1"},
        {"[Macros]\nF5=noquote\nF6=\"lost\"\nF7=\"kept\"\n", "1 | F7=\"kept\""},
        {"[Macros]\nF7", "1"},
        {"[Macros]\nF8\n=\"x\"\n", "0 | F8=\"x\""},
        {"[Menus]\nNo equals\n", "1"},
        {"[Menus]\nNo equals\nGood=1\n", "0 | Good=1"},
        {"[Menus]\nbar\nOne=1\nTwo=1\nONE=2\n", "0 | bar | One=1"},
        {"[Menus]\n=empty label\n", "147"},
        {"[Menus_ARexx]\nbad\n[Menus]\nGood=1\n", "0 | Good=1"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Changes(row.Body), row.Expected) << row.Body;
}

TEST_F(PreferencesTest, AnotherMagicIsAGoodFileWithNothingInIt)
{
    for (const char* file : {"TavrelPrefs 1.0 \n[Modes]\nTabs=9\n", "TavrelPrefs 1.0\r\n[Modes]\nTabs=9\n", "TavrelPrefs 1.0"}) {
        state_.Reset();
        const std::string defaults = state_.Format();
        EXPECT_EQ(state_.Parse(file), 0);
        EXPECT_EQ(state_.Format(), defaults);
    }
}

TEST_F(PreferencesTest, AWrittenFileReadsBackToTheSameBytes)
{
    state_.Parse(std::string("TavrelPrefs 1.0\n[Menus_ARexx]\nScript2=Two\nScript7=Seven\n[Modes]\nTabs=12\n"
                             "Requesters=2\nBackup=1\nToolbar=tools\n[Window]\nX=-3\n[Macros]\nShift-Alt-Ctrl-F12=\"a\"\n"
                             "Alt-Ctrl-z=\"b=\"\"\"\nF3=\"\"\nShift-F3=\"c\"\n[Menus]\nOne=1\nBAR\nTwo=2\n"));
    const std::string first = state_.Format();
    state_.Reset();
    EXPECT_EQ(state_.Parse(first), 0);
    EXPECT_EQ(state_.Format(), first);
}

class PreferencesFileTest : public PreferencesTest {
protected:
    void SetUp() override
    {
        char pattern[] = "/tmp/tavrel-prefs-XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        directory_ = pattern;
        path_ = directory_ + "/Tavrel.prefs";
        SetAppErrorDialog([](const char*, const char* body, const char*) { Reports() += body; });
        Reports().clear();
    }
    void TearDown() override
    {
        SetAppErrorDialog(nullptr);
        chmod(directory_.c_str(), 0700);
        std::system(("rm -rf " + directory_).c_str());
    }

    static std::string& Reports()
    {
        static std::string reports;
        return reports;
    }

    void WriteFile(const std::string& contents) const
    {
        std::ofstream(path_, std::ios::binary) << contents;
    }

    std::string ReadFile() const
    {
        std::ifstream in(path_, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }

    // Saves the state over an old file that the save can't replace; the
    // old file must stay byte for byte and the failure be shown.
    void ExpectFailedSaveKeepsOldFile(const std::string& old)
    {
        TextRecord* record = CreateTextRecord(nullptr);
        EXPECT_NE(WritePreferences(record, path_.c_str()), 0);
        FreeTextRecord(record);
        EXPECT_EQ(ReadFile(), old);
        EXPECT_NE(Reports(), "");
    }

    std::string directory_;
    std::string path_;
};

TEST_F(PreferencesFileTest, MissingFileIsNoFaultButAnEmptyOrUnreadableOneIs)
{
    EXPECT_EQ(ReadPreferences(&Settings, path_.c_str()), 0);
    WriteFile("");
    EXPECT_EQ(ReadPreferences(&Settings, path_.c_str()), 1);
    EXPECT_EQ(ReadPreferences(&Settings, directory_.c_str()), 1);
    WriteFile(ExampleFile);
    EXPECT_EQ(ReadPreferences(&Settings, path_.c_str()), 0);
    EXPECT_EQ(state_.Format(), ExampleFile);
}

TEST_F(PreferencesFileTest, SaveReplacesTheFile)
{
    WriteFile("old");
    state_.Parse(ExampleFile);
    TextRecord* record = CreateTextRecord(nullptr);
    EXPECT_EQ(WritePreferences(record, path_.c_str()), 0);
    FreeTextRecord(record);
    EXPECT_EQ(ReadFile(), ExampleFile);
    EXPECT_EQ(Reports(), "");
}

TEST_F(PreferencesFileTest, SaveIntoAnUnwritableDirectoryKeepsTheOldFile)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root writes into any directory; the full file system case covers it";
    WriteFile(ExampleFile);
    chmod(directory_.c_str(), 0500);
    Settings.Tabs = 9;
    ExpectFailedSaveKeepsOldFile(ExampleFile);
}

TEST_F(PreferencesFileTest, SaveIntoAFullFileSystemKeepsTheOldFile)
{
    if (geteuid() != 0 || mount("tmpfs", directory_.c_str(), "tmpfs", 0, "size=16k") != 0)
        GTEST_SKIP() << "needs a small tmpfs, which only root may mount";
    WriteFile(ExampleFile);
    // The rest of the file system is taken, so the new file can't be written.
    std::ofstream(directory_ + "/filler", std::ios::binary) << std::string(64 * 1024, 'x');
    Settings.Tabs = 9;
    ExpectFailedSaveKeepsOldFile(ExampleFile);
    umount(directory_.c_str());
}

TEST(PreferencesFuzz, MutatedFilesReadWithoutFault)
{
    PrefsFuzzer fuzzer(17);
    std::string fault;
    fuzzer.Run(20000, &fault);
    EXPECT_EQ(fault, "");
}

} // namespace
