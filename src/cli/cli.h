#pragma once
// The command-line tool's frame: global options, the message port that prints boxes, JSON output, and
// the registry every command file adds itself to.
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "session/messages.h"
#include "session/session.h"

namespace halvo::cli {

// Prints every box to stderr as "[title] text" and answers from the --answers list (the default
// answer once the list runs dry or when the listed answer is not offered).
class CliMessages : public MessagePort {
public:
    explicit CliMessages(std::vector<int> answers) : answers_(std::move(answers)) {}
    int ask(const Message& m) override;
    const std::vector<std::pair<Message, int>>& shown() const { return shown_; }

private:
    std::vector<int> answers_;
    size_t next_ = 0;
    std::vector<std::pair<Message, int>> shown_;
};

// A minimal JSON writer: enough for flat objects, arrays and strings.
std::string JsonString(const std::string& s);

struct Context {
    Session& session;
    CliMessages& messages;
    bool json = false;
    std::string engineDir, workDir;
    // The command's result as JSON members (without braces), filled by the command when json is on.
    std::vector<std::pair<std::string, std::string>> jsonMembers;
    void put(const std::string& key, const std::string& rawJson) { jsonMembers.emplace_back(key, rawJson); }
    void putString(const std::string& key, const std::string& value) { put(key, JsonString(value)); }
};

// A command returns the exit status: 0 success, 1 the routine reported a failure, 2 misuse.
struct Command {
    std::string name;
    std::string usage;    // arguments, as shown by --help
    std::string summary;  // one line
    std::function<int(Context&, const std::vector<std::string>&)> run;
};

std::map<std::string, Command>& Registry();

struct Register {
    explicit Register(Command c) { Registry().emplace(c.name, std::move(c)); }
};

// Exit codes.
inline constexpr int kOk = 0, kFailed = 1, kMisuse = 2;

// The working directory becomes the directory `path` names (--workdir when it names none); returns
// the bare file name.
std::string EnterDirectoryOf(Context& c, const std::string& path);

// Prints "usage: halvo-cli <name> <usage>" to stderr and returns kMisuse.
int Misuse(const Command& c);

}  // namespace halvo::cli
