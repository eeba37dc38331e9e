#include "text/numbers.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include "text/fault.h"
#include "text/tokens.h"

namespace halvo::text {
namespace {

bool IsSkippable(char c) { return c == ' ' || c == '\t' || c == '\n'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Formats with `precision` significant digits in the %G manner, then applies the classic touches:
// upper-case exponent with at least two digits, no leading zero before the point. Writes into `buf`
// (64 bytes) and returns the length, so that long rows of numbers need no string per number.
size_t PlainInto(char* buf, double v, int precision) {
    if (v == 0) {
        buf[0] = '0';
        return 1;
    }
    // Whole numbers that fit the precision print as integers: the common case, done without the
    // general conversion.
    if (v == std::trunc(v) && std::fabs(v) < (precision >= 15 ? 1e15 : 1e7))
        return size_t(std::to_chars(buf, buf + 64, std::int64_t(v)).ptr - buf);
    size_t n = size_t(std::to_chars(buf, buf + 64, v, std::chars_format::general, precision).ptr - buf);
    for (size_t i = 0; i < n; ++i)
        if (buf[i] == 'e') buf[i] = 'E';
    const size_t zero = buf[0] == '-' ? 1 : 0;  // the "0" of "0." or "-0."
    if (n > zero + 1 && buf[zero] == '0' && buf[zero + 1] == '.') {
        std::memmove(buf + zero, buf + zero + 1, n - zero - 1);
        --n;
    }
    return n;
}

std::string Plain(double v, int precision) {
    char buf[64];
    return std::string(buf, PlainInto(buf, v, precision));
}

std::string Shortest(double v, bool isFloat, int precision) {
    if (v == 0) return "0";
    char buf[64];
    std::to_chars_result res = isFloat ? std::to_chars(buf, buf + sizeof buf, float(v), std::chars_format::scientific)
                                       : std::to_chars(buf, buf + sizeof buf, v, std::chars_format::scientific);
    std::string sci(buf, res.ptr);  // d.ddde±XX
    const auto epos = sci.find('e');
    int exponent = 0;
    std::from_chars(sci.data() + epos + (sci[epos + 1] == '+' ? 2 : 1), sci.data() + sci.size(), exponent);
    const bool negative = sci[0] == '-';
    std::string digits;
    for (size_t i = negative ? 1 : 0; i < epos; ++i)
        if (IsDigit(sci[i])) digits += sci[i];
    std::string out = negative ? "-" : "";
    if (exponent < -4 || exponent >= precision) {
        out += digits.substr(0, 1);
        if (digits.size() > 1) out += "." + digits.substr(1);
        char e[16];
        auto r = std::to_chars(e, e + sizeof e, std::abs(exponent));
        std::string ex(e, r.ptr);
        if (ex.size() < 2) ex = "0" + ex;
        out += (exponent < 0 ? "E-" : "E+") + ex;
    } else if (exponent < 0) {
        out += "0." + std::string(size_t(-exponent - 1), '0') + digits;
    } else {
        const size_t whole = size_t(exponent) + 1;
        if (digits.size() <= whole) {
            out += digits + std::string(whole - digits.size(), '0');
        } else {
            out += digits.substr(0, whole) + "." + digits.substr(whole);
        }
    }
    return out;
}

}  // namespace

double Val(std::string_view s) {
    // The usual token: a plain number with nothing to skip. from_chars reads it as the full rules
    // would; anything else (blanks inside, "D" exponents, a plus sign, text behind) goes the long way.
    if (!s.empty() && (IsDigit(s[0]) || s[0] == '-' || s[0] == '.')) {
        bool plain = true;
        for (char c : s)
            if (!(IsDigit(c) || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E')) {
                plain = false;
                break;
            }
        double v = 0;
        if (plain) {
            const auto res = std::from_chars(s.data(), s.data() + s.size(), v);
            if (res.ec == std::errc() && res.ptr == s.data() + s.size()) return v;
        }
    }
    std::string clean;
    clean.reserve(s.size());
    size_t i = 0;
    auto skip = [&] {
        while (i < s.size() && IsSkippable(s[i])) ++i;
    };
    auto digits = [&] {
        size_t n = 0;
        for (skip(); i < s.size() && IsDigit(s[i]); skip()) {
            clean += s[i++];
            ++n;
        }
        return n;
    };
    skip();
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) {
        if (s[i] == '-') clean += '-';
        ++i;
    }
    size_t mantissa = digits();
    skip();
    if (i < s.size() && s[i] == '.') {
        clean += '.';
        ++i;
        mantissa += digits();
    }
    if (mantissa == 0) return 0.0;
    skip();
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E' || s[i] == 'd' || s[i] == 'D')) {
        const size_t mark = clean.size();
        clean += 'e';
        ++i;
        skip();
        if (i < s.size() && (s[i] == '+' || s[i] == '-')) {
            if (s[i] == '-') clean += '-';
            ++i;
        }
        if (digits() == 0) clean.resize(mark);
    }
    double v = 0;
    const auto res = std::from_chars(clean.data(), clean.data() + clean.size(), v);
    if (res.ec == std::errc::result_out_of_range) {
        // Underflow reads as 0; overflow is a fault.
        const auto e = clean.find('e');
        if (e != std::string::npos && clean.find('-', e) != std::string::npos) return 0.0;
        RaiseOverflow();
    }
    return v;
}

bool IsNumeric(std::string_view s) {
    s = TrimView(s);
    size_t i = 0;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
    size_t digits = 0;
    bool point = false;
    for (; i < s.size(); ++i) {
        if (IsDigit(s[i])) {
            ++digits;
        } else if (s[i] == '.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    if (digits == 0) return false;
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E' || s[i] == 'd' || s[i] == 'D')) {
        ++i;
        if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
        size_t exp = 0;
        while (i < s.size() && IsDigit(s[i])) {
            ++i;
            ++exp;
        }
        if (exp == 0) return false;
    }
    return i == s.size();
}

std::string CStr(float v) { return Plain(double(v), 7); }
void AppendCStr(std::string& out, float v) {
    char buf[64];
    out.append(buf, PlainInto(buf, double(v), 7));
}
std::string CStr(double v) { return Plain(v, 15); }
std::string Str(float v) { return v < 0 ? CStr(v) : " " + CStr(v); }
std::string Str(double v) { return v < 0 ? CStr(v) : " " + CStr(v); }
std::string CStr(int v) { return std::to_string(v); }
std::string Str(int v) { return v < 0 ? std::to_string(v) : " " + std::to_string(v); }

std::string GeneralNumber(float v) { return Shortest(v, true, 7); }
std::string GeneralNumber(double v) { return Shortest(v, false, 15); }

namespace {
double RoundHalfEven(double v) {
    const double f = std::floor(v);
    const double d = v - f;
    if (d > 0.5) return f + 1;
    if (d < 0.5) return f;
    return std::fmod(f, 2.0) == 0 ? f : f + 1;
}
}  // namespace

std::int16_t CInt(double v) {
    const double r = RoundHalfEven(v);
    if (!(r >= -32768.0 && r <= 32767.0)) RaiseOverflow();
    return std::int16_t(r);
}

std::int32_t CLng(double v) {
    const double r = RoundHalfEven(v);
    if (!(r >= -2147483648.0 && r <= 2147483647.0)) RaiseOverflow();
    return std::int32_t(r);
}

float CSng(double v) {
    if (std::isnan(v)) return float(v);
    if (std::fabs(v) > double(std::numeric_limits<float>::max())) RaiseOverflow();
    return float(v);
}

double Fix(double v) { return std::trunc(v); }
double Int(double v) { return std::floor(v); }

std::int16_t Add16(std::int16_t a, int b) {
    const int r = int(a) + b;
    if (r < -32768 || r > 32767) RaiseOverflow();
    return std::int16_t(r);
}

}  // namespace halvo::text
