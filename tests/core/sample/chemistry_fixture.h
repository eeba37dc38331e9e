#pragma once
// The chemistry tests run on the tables the project ships in examples/engine, loaded once.
#include <gtest/gtest.h>

#include <string>

#include "sample/element_table.h"
#include "session/session.h"
#include "test_support.h"
#include "text/numbers.h"

namespace halvo::test {

inline std::string EngineDir() { return DataDir() + "/../../examples/engine"; }

inline const DataTables& ShippedTables() {
    static const DataTables tables = [] {
        TestSession t;
        t.session.PathVKS = EngineDir();
        if (!LoadElementTables(t.session) || !t.session.Tables.IsotopesLoaded || !t.session.Tables.PscoefLoaded ||
            !t.session.Tables.CompoundsLoaded || !t.answers.transcript().empty())
            throw std::runtime_error("the shipped tables do not load cleanly");
        return t.session.Tables;
    }();
    return tables;
}

// A session with the shipped tables and a scripted message port.
struct ChemSession : TestSession {
    ChemSession() {
        session.PathVKS = EngineDir();
        session.Tables = ShippedTables();
    }
    std::string boxes() const { return answers.transcriptText(); }
};

// Exact float32 comparisons read best as the shortest text of the value.
inline std::string F(float v) { return text::GeneralNumber(v); }

}  // namespace halvo::test
