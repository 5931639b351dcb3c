#pragma once
// The whole program for a test: the main process on a task of its own, the
// test thread the headless display, and a scratch folder for the files the
// texts load and save. At the end every text is closed without asking (any
// requester still up is answered) and the folder goes.
#include "frame/process/main_process.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/idle.h"
#include "frame/protocol/send.h"
#include "platform/display/headless/headless_display.h"
#include "platform/exec/tasks.h"
#include "text/record/text_record.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

class RunningProgram : public ::testing::Test {
protected:
    void SetUp() override
    {
        char pattern[] = "/tmp/tavrel-program-XXXXXX";
        ASSERT_NE(::mkdtemp(pattern), nullptr);
        directory_ = pattern;
        SetDisplayBackend(&display_);
    }

    void TearDown() override
    {
        EndProgram();
        RemoveDirectory();
    }

    void EndProgram()
    {
        if (started_) {
            if (!ended_.load())
                PostCommand(Globals.MainPort, nullptr, CMD_CLOSE_TEXT | CMD_FREE, -1);
            while (!ended_.load()) {
                WaitForRest();
                display_.CloseAnyRequester();
            }
        }
        WaitForAllTasks();
        CollectReplies();
        SetDisplayBackend(nullptr);
    }

    void RemoveDirectory()
    {
        std::filesystem::permissions(directory_, std::filesystem::perms::owner_all);
        std::filesystem::remove_all(directory_);
    }

    void Start(const std::vector<std::string>& files)
    {
        started_ = true;
        CreateNewProc("Tavrel", [this, files] {
            MainProcess(files);
            ended_.store(true);
        });
        WaitForRest();
    }

    // Until every process waits for input, or the program has ended.
    void WaitForRest()
    {
        while (!ended_.load() && !ProgramIsIdle())
            std::this_thread::sleep_for(std::chrono::microseconds(50));
    }

    std::string Path(const std::string& name) const { return directory_ + "/" + name; }

    void Write(const std::string& path, const std::string& bytes) const
    {
        std::ofstream(path, std::ios::binary) << bytes;
    }

    static std::string Read(const std::string& path)
    {
        std::ifstream in(path, std::ios::binary);
        std::ostringstream bytes;
        bytes << in.rdbuf();
        return bytes.str();
    }

    // The texts in their list's order, once the program is at rest.
    std::vector<TextRecord*> Texts()
    {
        WaitForRest();
        std::vector<TextRecord*> texts;
        for (TextRecord* text = Globals.Texts.First; text; text = text->NextText)
            texts.push_back(text);
        return texts;
    }

    HeadlessDisplay display_;
    std::string directory_;
    bool started_ = false;
    std::atomic<bool> ended_{false};
};
