// halvo-cli: the headless face of the core. Global options come before the command:
//   halvo-cli [--engine-dir DIR] [--workdir DIR] [--answers yes,no,...] [--json] <command> ...
#include <cstdlib>
#include <iostream>
#include <sstream>

#include "cli.h"
#include "halvo/version.h"

using namespace halvo;
using namespace halvo::cli;

namespace {

void PrintHelp() {
    std::cout << "halvo-cli " << version::text << ": read, check, convert and write the files of a batch.\n\n"
              << "usage: halvo-cli [--engine-dir DIR] [--workdir DIR] [--answers yes,no,...] [--json] <command> ...\n\n"
              << "  --engine-dir DIR  engine directory (default: $PATHVKS)\n"
              << "  --workdir DIR     working directory (default: the current directory)\n"
              << "  --answers LIST    answers to the message boxes in turn (ok, cancel, yes, no, abort, retry,\n"
              << "                    ignore); a box past the list gets its default answer\n"
              << "  --json            print the result as one JSON object, messages included\n\n"
              << "Every message box is printed to stderr as \"[title] text\". Exit status: 0 success, 1 the\n"
              << "routine reported a failure, 2 misuse.\n\ncommands:\n";
    for (const auto& [name, c] : Registry()) {
        std::string head = "  " + name + " " + c.usage;
        if (head.size() < 44) head.resize(44, ' ');
        std::cout << head << " " << c.summary << "\n";
    }
}

bool ParseAnswers(const std::string& list, std::vector<int>& out) {
    std::stringstream in(list);
    std::string item;
    while (std::getline(in, item, ',')) {
        const int a = AnswerFromName(item);
        if (a == 0) return false;
        out.push_back(a);
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    std::vector<int> answers;
    bool json = false;
    const char* env = std::getenv("PATHVKS");
    std::string engineDir = env ? env : "";
    std::string workDir = ".";
    size_t i = 0;
    for (; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a == "--help" || a == "-h") {
            PrintHelp();
            return kOk;
        } else if (a == "--json") {
            json = true;
        } else if ((a == "--engine-dir" || a == "--workdir" || a == "--answers") && i + 1 < args.size()) {
            const std::string& v = args[++i];
            if (a == "--engine-dir")
                engineDir = v;
            else if (a == "--workdir")
                workDir = v;
            else if (!ParseAnswers(v, answers)) {
                std::cerr << "halvo-cli: unknown answer in --answers " << v << "\n";
                return kMisuse;
            }
        } else if (a.starts_with("--")) {
            std::cerr << "halvo-cli: unknown option " << a << " (see --help)\n";
            return kMisuse;
        } else {
            break;
        }
    }
    if (i >= args.size()) {
        PrintHelp();
        return kMisuse;
    }
    const auto it = Registry().find(args[i]);
    if (it == Registry().end()) {
        std::cerr << "halvo-cli: unknown command " << args[i] << " (see --help)\n";
        return kMisuse;
    }
    const std::vector<std::string> rest(args.begin() + long(i) + 1, args.end());
    if (!rest.empty() && (rest[0] == "--help" || rest[0] == "-h")) {
        std::cout << "usage: halvo-cli " << it->second.name << " " << it->second.usage << "\n  " << it->second.summary
                  << "\n";
        return kOk;
    }

    CliMessages messages(answers);
    Session session;
    session.ui = &messages;
    session.PathVKS = engineDir;
    session.FilePath = workDir;
    SetWarningsFlag(session, true);
    Context ctx{session, messages, json, engineDir, workDir, {}};
    const int status = it->second.run(ctx, rest);
    if (json && status != kMisuse) {
        std::cout << "{";
        bool first = true;
        for (const auto& [k, v] : ctx.jsonMembers) {
            std::cout << (first ? "" : ",") << JsonString(k) << ":" << v;
            first = false;
        }
        std::cout << (first ? "" : ",") << "\"status\":" << status << ",\"messages\":[";
        for (size_t m = 0; m < messages.shown().size(); ++m) {
            const auto& [msg, answer] = messages.shown()[m];
            std::cout << (m ? "," : "") << "{\"title\":" << JsonString(msg.title) << ",\"text\":" << JsonString(msg.text)
                      << ",\"buttons\":" << msg.buttons << ",\"answer\":" << JsonString(AnswerName(answer)) << "}";
        }
        std::cout << "]}\n";
    }
    return status;
}
