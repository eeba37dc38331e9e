#pragma once
// The geometry now loaded. Only the fields other subsystems consult before the reader exists.
#include <cstdint>

namespace halvo {

struct GeometryRecord {
    // -1 undetermined or any, 0 VKS7, 1 VKS8, 2 VKS9, -2 pre-VKS9, -3 post-VKS7.
    std::int16_t Syntax = -1;
    std::int16_t FileFormat = 0;
};

}  // namespace halvo
