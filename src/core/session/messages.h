#pragma once
// Every message box goes through a MessagePort: the program shows real boxes, the command-line tool
// prints them and answers from its --answers list, and tests script the answers and keep a transcript.
// Button sets, icons and answers use the classic message-box codes.
#include <string>
#include <vector>

namespace halvo {

namespace mb {
// Button sets.
inline constexpr int OKOnly = 0, OKCancel = 1, AbortRetryIgnore = 2, YesNoCancel = 3, YesNo = 4, RetryCancel = 5;
// Icons and default-button choice, added to a button set.
inline constexpr int Critical = 16, Question = 32, Exclamation = 48, Information = 64;
inline constexpr int DefaultButton2 = 256, DefaultButton3 = 512;
// Answers.
inline constexpr int OK = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7;
}  // namespace mb

struct Message {
    std::string title;
    std::string text;
    int buttons = mb::OKOnly;  // button set + icon + default button
};

// The answers a button set offers, in the order the buttons stand.
std::vector<int> AnswersOf(int buttons);
// The answer of the default button (the first unless DefaultButton2/3 is given).
int DefaultAnswer(int buttons);
// "OK", "Cancel", "Yes", ... and back (case ignored); 0 for an unknown name.
std::string AnswerName(int answer);
int AnswerFromName(const std::string& name);
std::string IconName(int buttons);

class MessagePort {
public:
    virtual ~MessagePort() = default;
    // Shows the message and returns the answer (one of AnswersOf(message.buttons)).
    virtual int ask(const Message& message) = 0;
};

// Answers every box with its default and keeps nothing.
class DefaultAnswers : public MessagePort {
public:
    int ask(const Message& message) override { return DefaultAnswer(message.buttons); }
};

// Answers from a queue (the default once it runs dry, or when a queued answer is not offered) and
// keeps a transcript of every box.
class ScriptedAnswers : public MessagePort {
public:
    struct Entry {
        Message message;
        int answer;
    };
    ScriptedAnswers() = default;
    explicit ScriptedAnswers(std::vector<int> answers) : queue_(std::move(answers)) {}
    void push(int answer) { queue_.push_back(answer); }
    int ask(const Message& message) override;
    const std::vector<Entry>& transcript() const { return transcript_; }
    // "[title] text" per box, one per line: compact for assertions.
    std::string transcriptText() const;
    void clear() { transcript_.clear(); }

private:
    std::vector<int> queue_;
    size_t next_ = 0;
    std::vector<Entry> transcript_;
};

}  // namespace halvo
