#pragma once
// Helpers shared by the core tests: a scratch directory per test, file helpers, and a session wired
// to a scripted message port.
#include <filesystem>
#include <string>

#include "session/messages.h"
#include "session/session.h"

namespace halvo::test {

// A fresh directory under the system's temporary directory, removed at the end of the scope.
class ScratchDir {
public:
    ScratchDir();
    ~ScratchDir();
    ScratchDir(const ScratchDir&) = delete;
    ScratchDir& operator=(const ScratchDir&) = delete;
    const std::string& path() const { return path_; }
    std::string file(const std::string& name) const { return path_ + "/" + name; }
    void write(const std::string& name, const std::string& bytes) const;
    std::string read(const std::string& name) const;
    bool exists(const std::string& name) const;

private:
    std::string path_;
};

// The directory of the test data (tests/data).
std::string DataDir();
std::string ReadData(const std::string& relative);

// A session whose message boxes go to `answers`, working in `dir`.
struct TestSession {
    explicit TestSession(const std::string& dir = "");
    ScriptedAnswers answers;
    Session session;
};

}  // namespace halvo::test
