// Detector efficiency files: golden cases with their message transcripts.
#include <gtest/gtest.h>

#include <filesystem>

#include "aux_case_file.h"
#include "geometry/aux_files.h"
#include "test_support.h"

namespace halvo::test {
namespace {

TEST(AuxEffi, GoldenCases) {
    const std::string cases = "geometry/aux/effi_cases.txt";
    AuxCaseFile file = ReadAuxCaseFile(cases);
    for (AuxCase& c : file.cases) {
        SCOPED_TRACE(c.name);
        ScratchDir dir;
        std::filesystem::copy(DataDir() + "/geometry/aux/effi", dir.path());
        TestSession t(dir.path());
        for (int a : c.answers) t.answers.push(a);
        if (c.set.count("warnings") && c.set.at("warnings") == "off") SetWarningsFlag(t.session, false);
        ASSERT_FALSE(c.call.empty());
        const std::string result = "errors=" + std::to_string(CheckEffiFile(t.session, c.call[0]));
        const std::string transcript = ReplaceAll(t.answers.transcriptText(), dir.path(), "<dir>");
        if (Regold()) {
            c.expect = result;
            c.transcript = transcript;
            continue;
        }
        EXPECT_EQ(result, c.expect);
        EXPECT_EQ(transcript, c.transcript);
    }
    if (Regold()) WriteAuxCaseFile(cases, file);
}

}  // namespace
}  // namespace halvo::test
