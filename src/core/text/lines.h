#pragma once
// Text files are bytes (the Windows code page, kept as they are). Reading accepts CR LF, LF and a
// lone CR as line ends; everything written for the engine ends its lines with CR LF.
#include <string>
#include <string_view>
#include <vector>

namespace halvo::text {

class LineReader {
public:
    explicit LineReader(std::string_view bytes) : rest_(bytes) {}
    // Next line without its end; false at end of input. A final line without an end still counts.
    bool next(std::string& line);
    bool atEnd() const { return rest_.empty(); }

private:
    std::string_view rest_;
};

std::vector<std::string> SplitLines(std::string_view bytes);

// Builds a file's contents line by line with CR LF ends.
class CrlfWriter {
public:
    CrlfWriter& line(std::string_view s) {
        text_ += s;
        text_ += "\r\n";
        return *this;
    }
    CrlfWriter& raw(std::string_view s) {
        text_ += s;
        return *this;
    }
    const std::string& text() const { return text_; }
    std::string take() { return std::move(text_); }

private:
    std::string text_;
};

}  // namespace halvo::text
