#pragma once
// A run-time fault of the kind the classic runtime raised (overflow, subscript out of range).
// Routines that own a trap catch it at their boundary and report their "Unexpected error" text;
// a fault never ends the program.
#include <stdexcept>
#include <string>

namespace halvo {

class RuntimeFault : public std::runtime_error {
public:
    enum Code { Overflow = 6, SubscriptOutOfRange = 9, DivisionByZero = 11, TypeMismatch = 13, OutOfStackSpace = 28,
                InputPastEnd = 62, FileAccess = 75 };
    RuntimeFault(Code code, const std::string& what) : std::runtime_error(what), code_(code) {}
    Code code() const { return code_; }

private:
    Code code_;
};

[[noreturn]] inline void RaiseOverflow() { throw RuntimeFault(RuntimeFault::Overflow, "Overflow"); }
[[noreturn]] inline void RaiseSubscript() {
    throw RuntimeFault(RuntimeFault::SubscriptOutOfRange, "Subscript out of range");
}
[[noreturn]] inline void RaiseInputPastEnd() {
    throw RuntimeFault(RuntimeFault::InputPastEnd, "Input past end of file");
}

}  // namespace halvo
