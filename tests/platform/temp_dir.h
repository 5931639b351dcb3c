#pragma once
// A fresh directory under /tmp for one test, removed with all it holds.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

class TempDir {
public:
    TempDir() {
        char pattern[] = "/tmp/tavrel-test-XXXXXX";
        EXPECT_NE(mkdtemp(pattern), nullptr);
        path = pattern;
    }
    ~TempDir() { EXPECT_EQ(std::system(("rm -rf '" + path + "'").c_str()), 0); }
    // Creates an empty file (or updates its date); `name` is relative.
    void Touch(const std::string& name) const {
        EXPECT_EQ(std::system(("touch '" + path + "/" + name + "'").c_str()), 0);
    }
    std::string path;
};
