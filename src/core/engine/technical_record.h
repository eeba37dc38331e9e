#pragma once
// The settings of a technical file and of the engine's command line. Only the fields that the
// profile check needs are here so far; the rest of the record arrives with the technical file.
#include <cstdint>
#include <string>

namespace halvo {

struct TechnicalRecord {
    // Kind of run: 1 annealing and local search, 0 annealing only, 2 local search only,
    // -1 simulation only, 3 annealing from the profile.
    std::int16_t Mode = -1;
    // One character: "0" to "7", "p" or "x". An empty speed goes to the command line as "0", so
    // "0" is where a new record starts.
    std::string Speed = "0";
};

}  // namespace halvo
