// Cross-section files: every path of the check, as golden cases with their message transcripts, and
// the offer to fix a bad file.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "aux_case_file.h"
#include "geometry/aux_files.h"
#include "test_support.h"
#include "text/numbers.h"

namespace halvo::test {
namespace {

namespace fs = std::filesystem;

// A scratch working directory with the fixture files copied into <dir>/ebs.
struct NonRFixture {
    ScratchDir dir;
    std::string ebs = dir.path() + "/ebs";
    NonRFixture() { fs::copy(DataDir() + "/geometry/aux/nonr", ebs, fs::copy_options::recursive); }
};

// Settings of the cases: scatter, energy, sample, geo (geometry name), ebs (EBSFilePath, "<ebs>" and
// "<dir>" allowed, empty for none), work (FilePath), quiet (yes/no), warnings (on/off).
void Apply(Session& s, const AuxCase& c, const NonRFixture& f) {
    auto get = [&](const std::string& key, const std::string& fallback) {
        const auto it = c.set.find(key);
        const std::string v = it == c.set.end() ? fallback : it->second;
        return ReplaceAll(ReplaceAll(v, "<ebs>", f.ebs), "<dir>", f.dir.path());
    };
    s.Geometry.Scatter = float(text::Val(get("scatter", "170")));
    s.Geometry.Energy = float(text::Val(get("energy", "2000")));
    s.Geometry.Name = get("geo", "run1");
    s.CurrentSample = std::int16_t(text::Val(get("sample", "3")));
    s.Aux.EBSFilePath = get("ebs", "<ebs>");
    s.FilePath = get("work", "<dir>");
    if (get("warnings", "on") == "off") SetWarningsFlag(s, false);
}

std::string Placeholders(const std::string& transcript, const NonRFixture& f) {
    return ReplaceAll(ReplaceAll(transcript, f.ebs, "<ebs>"), f.dir.path(), "<dir>");
}

TEST(AuxNonR, GoldenCases) {
    const std::string cases = "geometry/aux/nonr_cases.txt";
    AuxCaseFile file = ReadAuxCaseFile(cases);
    for (AuxCase& c : file.cases) {
        SCOPED_TRACE(c.name);
        NonRFixture f;
        TestSession t;
        for (int a : c.answers) t.answers.push(a);
        Apply(t.session, c, f);
        ASSERT_FALSE(c.call.empty());
        const bool quiet = c.set.count("quiet") && c.set.at("quiet") == "yes";
        std::int16_t errors = 0, warnings = 0;
        const bool pass = VerifyNonRFile(t.session, c.call[0], quiet, errors, warnings);
        std::string result = std::string(pass ? "pass" : "fail") + " errors=" + std::to_string(errors) +
                             " warnings=" + std::to_string(warnings);
        if (c.set.count("ebs-after")) result += " ebs=" + Placeholders(t.session.Aux.EBSFilePath, f);
        const std::string transcript = Placeholders(t.answers.transcriptText(), f);
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

TEST(AuxNonR, CountsAddToWhatTheCallerHas) {
    NonRFixture f;
    TestSession t(f.dir.path());
    t.session.Aux.EBSFilePath = f.ebs;
    t.session.Geometry.Scatter = 165;
    std::int16_t errors = 2, warnings = 5;
    EXPECT_TRUE(VerifyNonRFile(t.session, "r33_ok.r33", true, errors, warnings));
    EXPECT_EQ(errors, 2);
    EXPECT_EQ(warnings, 6);
    EXPECT_FALSE(VerifyNonRFile(t.session, "plain_mm.dat", true, errors, warnings));
    EXPECT_EQ(errors, 3);
}

// The user is offered the editor; the test's editor repairs the file, and the check is repeated.
TEST(AuxNonR, AskFixOpensTheEditorAndVerifiesAgain) {
    NonRFixture f;
    TestSession t(f.dir.path());
    t.session.Aux.EBSFilePath = f.ebs;
    t.session.Geometry.Scatter = 170;
    std::vector<std::string> edited;
    t.session.Aux.EditFile = [&](const std::string& command, const std::string& path) {
        edited.push_back(command);
        std::ofstream(path, std::ios::binary | std::ios::trunc) << "m t\r\n1000 12.5\r\n3000 14.0\r\n";
    };
    t.answers.push(mb::OK);   // illegal string
    t.answers.push(mb::OK);   // ILLEGAL for VKS
    t.answers.push(mb::Yes);  // fix it
    EXPECT_TRUE(AskFixNonRFile(t.session, "plain_mm.dat", true));
    ASSERT_EQ(edited.size(), 1u);
    EXPECT_EQ(edited[0], "notepad.exe " + f.ebs + "/plain_mm.dat");
    EXPECT_EQ(Placeholders(t.answers.transcriptText(), f),
              "[VerifyNonRFile: error for <ebs>/plain_mm.dat] Non-Rutherford file contains illegal string: m m"
              " (press Cancel to silence this message)\n"
              "[VerifyNonRFile (<ebs>/plain_mm.dat): ERROR for Sample Number = 1] Verify Non-Rutherford "
              "cross-section file: ILLEGAL for VKS (it will ignore this EBS!) (press Cancel to silence this "
              "message)\n"
              "[Geometry2.check1:  bad format in NonRutherford file] Do you want to fix the errors in file "
              "<ebs>/plain_mm.dat (Press Cancel to silence this message and default to 'No')\n"
              "[Geometry2.check1:  bad format in NonRutherford file] Pausing until you are ready ... (press OK "
              "to continue)\n");
    EXPECT_EQ(t.answers.transcript()[2].message.buttons, mb::YesNoCancel + mb::Question + mb::DefaultButton2);
}

TEST(AuxNonR, AskFixNoAndCancelLeaveTheFileAlone) {
    for (int answer : {mb::No, mb::Cancel}) {
        NonRFixture f;
        TestSession t(f.dir.path());
        t.session.Aux.EBSFilePath = f.ebs;
        int opened = 0;
        t.session.Aux.EditFile = [&](const std::string&, const std::string&) { ++opened; };
        t.answers.push(mb::OK);
        t.answers.push(mb::OK);
        t.answers.push(answer);
        EXPECT_FALSE(AskFixNonRFile(t.session, "plain_three_columns.dat", true));
        EXPECT_EQ(opened, 0);
        EXPECT_EQ(t.answers.transcript().size(), 3u);
        // Cancel silences every later warning, as on any other warning box.
        EXPECT_EQ(t.session.WarningsFlag, answer == mb::No);
    }
}

// With warnings off nothing is asked: the answer defaults to No and the editor never opens.
TEST(AuxNonR, AskFixWithWarningsOffDefaultsToNo) {
    NonRFixture f;
    TestSession t(f.dir.path());
    t.session.Aux.EBSFilePath = f.ebs;
    SetWarningsFlag(t.session, false);
    int opened = 0;
    t.session.Aux.EditFile = [&](const std::string&, const std::string&) { ++opened; };
    EXPECT_FALSE(AskFixNonRFile(t.session, "missing.dat", false));
    EXPECT_EQ(opened, 0);
    EXPECT_TRUE(t.answers.transcript().empty());
}

// A user who keeps answering Yes without mending the file is asked again each time.
TEST(AuxNonR, AskFixRepeatsUntilTheUserDeclines) {
    NonRFixture f;
    TestSession t(f.dir.path());
    t.session.Aux.EBSFilePath = f.ebs;
    int opened = 0;
    t.session.Aux.EditFile = [&](const std::string&, const std::string&) { ++opened; };
    for (int round = 0; round < 2; ++round) {
        t.answers.push(mb::OK);
        t.answers.push(mb::Yes);
        t.answers.push(mb::OK);
    }
    t.answers.push(mb::OK);
    t.answers.push(mb::No);
    EXPECT_FALSE(AskFixNonRFile(t.session, "empty.dat", true));
    EXPECT_EQ(opened, 2);
    EXPECT_EQ(t.answers.transcript().size(), 8u);
}

}  // namespace
}  // namespace halvo::test
