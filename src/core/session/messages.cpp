#include "session/messages.h"

#include <algorithm>

#include "text/tokens.h"

namespace halvo {

std::vector<int> AnswersOf(int buttons) {
    switch (buttons & 7) {
        case mb::OKCancel: return {mb::OK, mb::Cancel};
        case mb::AbortRetryIgnore: return {mb::Abort, mb::Retry, mb::Ignore};
        case mb::YesNoCancel: return {mb::Yes, mb::No, mb::Cancel};
        case mb::YesNo: return {mb::Yes, mb::No};
        case mb::RetryCancel: return {mb::Retry, mb::Cancel};
        default: return {mb::OK};
    }
}

int DefaultAnswer(int buttons) {
    const auto answers = AnswersOf(buttons);
    size_t index = 0;
    if (buttons & mb::DefaultButton3)
        index = 2;
    else if (buttons & mb::DefaultButton2)
        index = 1;
    return answers[std::min(index, answers.size() - 1)];
}

namespace {
const char* const kAnswerNames[] = {"", "OK", "Cancel", "Abort", "Retry", "Ignore", "Yes", "No"};
}

std::string AnswerName(int answer) {
    return answer >= 1 && answer <= 7 ? kAnswerNames[answer] : std::to_string(answer);
}

int AnswerFromName(const std::string& name) {
    for (int a = 1; a <= 7; ++a)
        if (text::EqualsIgnoreCase(name, kAnswerNames[a])) return a;
    return 0;
}

std::string IconName(int buttons) {
    switch (buttons & 0x70) {
        case mb::Critical: return "critical";
        case mb::Question: return "question";
        case mb::Exclamation: return "exclamation";
        case mb::Information: return "information";
        default: return "";
    }
}

int ScriptedAnswers::ask(const Message& message) {
    int answer = DefaultAnswer(message.buttons);
    if (next_ < queue_.size()) {
        const int wanted = queue_[next_++];
        const auto offered = AnswersOf(message.buttons);
        if (std::find(offered.begin(), offered.end(), wanted) != offered.end()) answer = wanted;
    }
    transcript_.push_back({message, answer});
    return answer;
}

std::string ScriptedAnswers::transcriptText() const {
    std::string out;
    for (const auto& e : transcript_) out += "[" + e.message.title + "] " + e.message.text + "\n";
    return out;
}

}  // namespace halvo
