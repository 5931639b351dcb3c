#pragma once
// Helpers of the file tests: a fresh text and a scratch directory per test,
// files written and read back as bytes, and dialogs that record what was
// reported and answer questions as the test says.
#include "../text/text_test_support.h"
#include "services/message_id.h"

#include <string>
#include <vector>

class FilesTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    std::string Path(const std::string& name) const { return directory_ + "/" + name; }
    void WriteFile(const std::string& name, const std::string& bytes) const;
    std::string ReadFile(const std::string& name) const;
    std::vector<std::string> DirectoryEntries() const;
    // Stores `lines` as the text's lines, cursor at 0/0, unmodified.
    void SetLines(const Lines& lines);
    Lines StoredLines() const { return ::StoredLines(record_.get()); }
    // SaveText of the file `name` while no file may grow beyond `bytes`: a
    // write fails half way, as on a full disk.
    bool SaveWithSizeLimit(const std::string& name, unsigned long bytes);

    RecordPtr record_;
    std::string directory_;

public:
    // Message ids reported or asked, in order.
    static std::vector<int> shown;
    // The answer to every question, and the name a file request gives ("" cancels).
    static int answer;
    static std::string chosenFile;
};
