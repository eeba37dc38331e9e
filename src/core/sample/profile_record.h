#pragma once
// A sample's depth profile: one row per layer from the surface down, column 0 the thickness in TFU,
// then one column per logical element of the structure, then the inclusion and roughness columns.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "text/fault.h"

namespace halvo {

// A table addressed as (column, layer): columns 0 .. columns(), layers 1 .. layers() (layer 0 is
// kept, unused, as in every record array). An index outside raises the subscript fault that the
// owning routine's trap reports.
template <class T>
class LayerTable {
public:
    void resize(int columns, int layers) {
        columns_ = columns < 0 ? -1 : columns;
        layers_ = layers < 0 ? -1 : layers;
        cells_.assign(size_t(columns_ + 1) * size_t(layers_ + 1), T{});
    }
    void clear() { resize(-1, -1); }
    int columns() const { return columns_; }
    int layers() const { return layers_; }
    bool has(int column, int layer) const {
        return column >= 0 && column <= columns_ && layer >= 0 && layer <= layers_;
    }
    T& operator()(int column, int layer) {
        if (!has(column, layer)) RaiseSubscript();
        return cells_[index(column, layer)];
    }
    const T& operator()(int column, int layer) const {
        if (!has(column, layer)) RaiseSubscript();
        return cells_[index(column, layer)];
    }
    // The cell, or a zero value for a place outside the table.
    T get(int column, int layer) const { return has(column, layer) ? cells_[index(column, layer)] : T{}; }
    bool operator==(const LayerTable&) const = default;

private:
    size_t index(int column, int layer) const { return size_t(layer) * size_t(columns_ + 1) + size_t(column); }
    int columns_ = -1, layers_ = -1;
    std::vector<T> cells_;
};

struct ProfileRecord {
    std::string ProfileFile;
    std::int16_t Layers = 0;
    std::int16_t ProfileLE = 0;    // logical elements: NLE of the structure
    bool HasRoughColumns = false;  // the roughness column is present
    bool HasRoughFlag = false;     // so is the roughness fit flag behind it
    LayerTable<float> RawValues;   // as read; column 0 the thickness
    LayerTable<float> Fractions;   // logical element columns over their layer's sum; others as read
    LayerTable<std::int16_t> FitFlags;  // variation flags: 0 fixed, anything else may vary
};

// The scratch form of a profile file that the column edits work on.
struct PRFarr {
    std::int16_t PRFlayers = 0;
    std::int16_t PRFcolumns = 0;  // highest column index
    LayerTable<float> PRFvalues;  // column 0 .. PRFcolumns, layer 1 .. PRFlayers
};

}  // namespace halvo
