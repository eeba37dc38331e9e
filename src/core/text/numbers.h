#pragma once
// Numbers as the files and the engine know them: the lenient reading of a number prefix, the strict
// "numeric" test, the plain number-to-string form, and the classic rounding rules. Locale-free.
#include <cstdint>
#include <string>
#include <string_view>

namespace halvo::text {

// The longest number at the front of `s`: leading blanks, tabs and LFs are skipped, blanks inside are
// ignored, then sign, digits, one point, exponent with E or D. 0 when no number stands there.
// Raises an overflow fault for a value outside the double range.
double Val(std::string_view s);

// Strict: optional blanks, sign, digits with at most one point, optional exponent with E or D.
bool IsNumeric(std::string_view s);

// The plain number-to-string form: up to 7 (float) or 15 (double) significant digits, no leading zero
// before the point, exponent form "1E+07" outside the fixed range. Str puts a blank before a
// non-negative number; CStr does not.
std::string CStr(float v);
std::string CStr(double v);
std::string Str(float v);
std::string Str(double v);
std::string Str(int v);
std::string CStr(int v);
// CStr(v) appended to `out`, for long rows of numbers.
void AppendCStr(std::string& out, float v);

// Shortest text that reads back as the same value, with a leading zero ("0.5"); exponent form as CStr.
std::string GeneralNumber(float v);
std::string GeneralNumber(double v);

// Rounding to whole numbers: half to even; a result outside the type raises an overflow fault.
std::int16_t CInt(double v);
std::int32_t CLng(double v);
float CSng(double v);  // overflow fault outside the float range
double Fix(double v);  // truncates toward zero ("whole part")
double Int(double v);  // floors ("integer part")

// 16-bit arithmetic that faults on overflow, as the counters of the batch do.
std::int16_t Add16(std::int16_t a, int b);

}  // namespace halvo::text
