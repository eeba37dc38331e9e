#include "cli.h"

#include "platform/files.h"

#include <cstdio>
#include <iostream>

namespace halvo::cli {

int CliMessages::ask(const Message& m) {
    int answer = DefaultAnswer(m.buttons);
    if (next_ < answers_.size()) {
        const int wanted = answers_[next_++];
        for (int offered : AnswersOf(m.buttons))
            if (offered == wanted) answer = wanted;
    }
    std::cerr << "[" << m.title << "] " << m.text << "\n";
    shown_.emplace_back(m, answer);
    return answer;
}

std::string JsonString(const std::string& s) {
    std::string out = "\"";
    for (unsigned char c : s) {
        switch (c) {
            case '"': out += "\\\""; break;
            case '\\': out += "\\\\"; break;
            case '\n': out += "\\n"; break;
            case '\r': out += "\\r"; break;
            case '\t': out += "\\t"; break;
            default:
                if (c < 0x20) {
                    char buf[8];
                    std::snprintf(buf, sizeof buf, "\\u%04x", c);
                    out += buf;
                } else if (c >= 0x80) {
                    // File bytes are Latin-1: give JSON their UTF-8 form.
                    out += char(0xC0 | (c >> 6));
                    out += char(0x80 | (c & 0x3F));
                } else {
                    out += char(c);
                }
        }
    }
    return out + "\"";
}

std::map<std::string, Command>& Registry() {
    static std::map<std::string, Command> registry;
    return registry;
}

std::string EnterDirectoryOf(Context& c, const std::string& path) {
    const std::string normal = platform::NormalizeSeparators(path);
    const auto slash = normal.find_last_of('/');
    if (slash == std::string::npos) {
        c.session.FilePath = c.workDir;
        return normal;
    }
    c.session.FilePath = slash == 0 ? "/" : normal.substr(0, slash);
    return normal.substr(slash + 1);
}

int Misuse(const Command& c) {
    std::cerr << "usage: halvo-cli " << c.name << " " << c.usage << "\n";
    return kMisuse;
}

}  // namespace halvo::cli
