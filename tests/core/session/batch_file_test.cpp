#include "session/batch_file.h"

#include <gtest/gtest.h>

#include "session/batch_commands.h"
#include "session/main_view.h"
#include "test_support.h"

namespace halvo {
namespace {

using test::ScratchDir;
using test::TestSession;

const std::string kCrLf = "\r\n";

// A working directory holding the batch `name` and, optionally, every file it names.
struct BatchFixture {
    ScratchDir dir;
    TestSession t{dir.path()};
    Session& s = t.session;
    void read(const std::string& name = "run.spc") { ReadBatch(s, dir.file(name)); }
    // The boxes of the batch routines: the main window also reads each association's geometry, and
    // the geometries these batches name are missing or empty, which is the geometry reader's business.
    std::vector<ScriptedAnswers::Entry> batchBoxes() const {
        std::vector<ScriptedAnswers::Entry> out;
        for (const auto& e : t.answers.transcript())
            if (!e.message.title.starts_with("ReadGeometry")) out.push_back(e);
        return out;
    }
    std::string boxes() const {
        std::string out;
        for (const auto& e : batchBoxes()) out += "[" + e.message.title + "] " + e.message.text + "\n";
        return out;
    }
};

TEST(ReadBatch, TellsLineKindsByTokensAndBrackets) {
    BatchFixture f;
    f.dir.write("run.spc",
                "h1.dat 1 g1 s1 -7\r\n"
                "p1.dat 2 g2(x)\r\n"     // three tokens: plain, bracket or not
                "l1.dat 3 g3 (1)\r\n"    // a bracket after the charge: linked
                "h2.dat 4 g4 s2\r\n"     // four tokens and no bracket: a new sample
                "h3.dat 5 g5 s3 -7\r\n"  // later heads lose the sign of their verbosity
                "x\r\n"                  // too few tokens: skipped
                "l3.dat 6 g6 {12}\r\n");
    f.read();
    const Session& s = f.s;
    ASSERT_EQ(s.NSamples, 3);
    ASSERT_EQ(s.Samples.size(), 5u);
    EXPECT_EQ(s.BatchName, "run");
    const Sample& a = s.Samples[1];
    EXPECT_EQ(a.NSpectra, 3);
    EXPECT_EQ(a.Structure, "s1");
    EXPECT_EQ(a.Verbosity, -3);
    EXPECT_EQ(a.Spectra[1].GeometryFile, "g2(x)");
    EXPECT_EQ(a.Spectra[1].LinkTo, 0);
    EXPECT_EQ(a.Spectra[2].LinkKind, '(');
    EXPECT_EQ(a.Spectra[2].LinkTo, 1);
    EXPECT_EQ(a.Spectra[2].Charge, 3.0f);
    EXPECT_EQ(s.Samples[2].NSpectra, 1);
    EXPECT_EQ(s.Samples[2].Verbosity, 0);
    EXPECT_EQ(s.Samples[3].Verbosity, 3);
    EXPECT_EQ(s.Samples[3].Spectra[1].LinkKind, '{');
    EXPECT_EQ(s.Samples[3].Spectra[1].LinkTo, 12);
    EXPECT_FALSE(s.VerbosityAllSame);
    EXPECT_EQ(s.lists.Label15, "Verbosity: per sample");
    EXPECT_EQ(s.lists.Combo1.items, (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_EQ(s.lists.VScroll1Max, 6);
    EXPECT_EQ(s.MainTitle, "VKScontrol - run");
    EXPECT_EQ(s.lists.List3.items, (std::vector<std::string>{"h1.dat ==> g1", "p1.dat ==> g2(x)", "l1.dat ==> g3 (1)"}));
    EXPECT_EQ(s.lists.List5.items, (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_EQ(f.boxes(), "");
}

TEST(ReadBatch, DatesComeFromTheFilesExceptForPlainLines) {
    BatchFixture f;
    f.dir.write("run.spc", "h.dat 1 g s\r\np.dat 2 g\r\nl.dat 2 g (1)\r\n");
    f.dir.write("h.dat", "");
    f.dir.write("G.GEO", "");
    f.dir.write("s.str", "");
    f.read();
    const Sample& a = f.s.Samples[1];
    EXPECT_GT(a.Spectra[0].DataFileDate, 40000.0);
    EXPECT_GT(a.Spectra[0].GeometryDate, 40000.0);
    EXPECT_GT(a.StructureDate, 40000.0);
    EXPECT_EQ(a.Spectra[1].GeometryDate, 0.0);  // looked up without ".geo"
    EXPECT_GT(a.Spectra[2].GeometryDate, 40000.0);
}

TEST(ReadBatch, OneTokenGivesOneEmptySample) {
    BatchFixture f;
    f.dir.write("run.spc", "lonely\r\nb.dat 1 g\r\n");
    f.read();
    EXPECT_EQ(f.s.NSamples, 1);
    EXPECT_EQ(f.s.Samples[1].NSpectra, 0);
    EXPECT_TRUE(f.t.answers.transcript().empty());
}

TEST(ReadBatch, KeepsDashedNamesWholeOnceTheSeparatorIsFixed) {
    BatchFixture f;
    f.dir.write("run.spc", "test-1.dat 1e1 geo-2 str-3\r\n");
    f.read();
    EXPECT_EQ(f.s.Samples[1].Spectra[0].DataFile, "test-1.dat");
    EXPECT_EQ(f.s.Samples[1].Spectra[0].Charge, 10.0f);
    EXPECT_EQ(f.s.Samples[1].Spectra[0].GeometryFile, "geo-2");
}

TEST(ReadBatch, StopsAtANonNumericChargeKeepingWhatWasRead) {
    BatchFixture f;
    f.dir.write("run.spc", "a.dat 1 g s\r\nb.dat 2 g\r\nc.dat 12uC g\r\n");
    f.s.CurrentSample = 1;
    f.read();
    EXPECT_EQ(f.t.answers.transcriptText(),
              "[Read Batch Error] Charge '12uC' not numeric in line ''c.dat 12uC g'' in structure file " +
                  f.dir.file("run.spc") + "\n");
    EXPECT_EQ(f.t.answers.transcript()[0].message.buttons, mb::Exclamation);
    EXPECT_EQ(f.s.Samples[1].Spectra[1].DataFile, "b.dat");
    EXPECT_TRUE(f.s.lists.Combo1.items.empty());
}

TEST(ReadBatch, ReportsEmptyAndMisplacedFiles) {
    BatchFixture f;
    f.dir.write("empty.spc", "");
    f.read("empty.spc");
    f.read("absent.spc");  // quietly nothing
    ScratchDir other;
    other.write("else.spc", "a 1 g s\r\n");
    ReadBatch(f.s, other.file("else.spc"));  // not in the working directory
    EXPECT_EQ(f.t.answers.transcriptText(),
              "[Read Batch warning (checkBatchFile found length=0)] BatchFile is empty!\n"
              "[Read Batch warning] " + f.dir.file("else.spc") + " appears not to exist\n");
}

TEST(ReadBatch, OffersToRepairBareLineFeeds) {
    for (int answer : {mb::Yes, mb::No, mb::Cancel}) {
        BatchFixture f;
        const std::string lf = "a.dat 1 g s\nb.dat 2 g\n";
        f.dir.write("run.spc", lf);
        f.t.answers.push(mb::OK);
        f.t.answers.push(answer);
        f.read();
        EXPECT_EQ(f.boxes(),
                  "[checkBatchFile warning] The batch file " + f.dir.file("run.spc") +
                      " has double-quotes or bare LFs in it (press Cancel to silence this message)\n"
                      "[ReadBatch warning] Do you want to correct file? (Rewrites run.spc)\n");
        EXPECT_EQ(f.t.answers.transcript()[1].message.buttons, mb::YesNoCancel);
        EXPECT_EQ(f.dir.read("run.spc"), answer == mb::Yes ? "a.dat 1 g s\r\nb.dat 2 g\r\n" : lf);
        EXPECT_EQ(f.s.Samples[1].NSpectra, answer == mb::Cancel ? 0 : 2) << answer;
    }
}

TEST(CheckBatchFile, FindsQuotesAndBareLineFeedsAndRepairsOnlyTheLineFeeds) {
    ScratchDir dir;
    TestSession t(dir.path());
    long length = -1;
    std::string path = dir.file("q.spc");
    dir.write("q.spc", "\"a.dat\" 1 g s\r\nb 2 g\n\nc 3 g\r\n");
    EXPECT_TRUE(checkBatchFile(t.session, path, length, false));
    EXPECT_EQ(length, 29);
    EXPECT_FALSE(checkBatchFile(t.session, path, length, true));
    EXPECT_EQ(dir.read("q.spc"), "\"a.dat\" 1 g s\r\nb 2 g\r\n\r\nc 3 g\r\n");
    EXPECT_EQ(dir.read("q.spc~"), "\"a.dat\" 1 g s\r\nb 2 g\n\nc 3 g\r\n");
    dir.write("clean.spc", "a 1 g s\r\n");
    path = dir.file("clean.spc");
    EXPECT_FALSE(checkBatchFile(t.session, path, length, false));
    path = dir.path() + "/";
    EXPECT_TRUE(checkBatchFile(t.session, path, length, false));
}

TEST(SaveBatchFile, RoundTripGivesTheCanonicalFile) {
  for (const char* input : {"batch/roundtrip.in.spc", "batch/roundtrip-blanks.in.spc"}) {
    SCOPED_TRACE(input);
    BatchFixture f;
    f.dir.write("run.spc", test::ReadData(input));
    for (const char* name : {"a1.dat", "a2.dat", "b1.dat", "b2.dat", "b3.dat", "c1.dat", "geo1.geo", "geo2.geo",
                             "geo3.geo", "geo4.geo", "geo5.geo", "str1.str", "str2.str", "str3.str"})
        f.dir.write(name, "");
    f.read();
    MarkSaved(f.s, false);
    EXPECT_EQ(mnuSave_Click(f.s), SaveStep::Done);
    EXPECT_EQ(f.dir.read("run.spc"), test::ReadData("batch/roundtrip.out.spc"));
    EXPECT_EQ(f.dir.read("run.spc~"), test::ReadData(input));
    EXPECT_EQ(f.s.MainTitle, "VKScontrol - run");
    EXPECT_EQ(f.boxes(), "");
  }
}

TEST(SaveBatchFile, ReportsMissingFilesAndStopsAtAnEmptyName) {
    BatchFixture f;
    f.dir.write("run.spc", "a.dat 1 g s 2\r\nb.dat 2 g (1)\r\nc.dat 3 h t\r\n");
    f.read();
    f.s.Samples[1].Spectra[1].LinkKind = '?';  // an unknown kind drops the line
    f.s.Samples[2].Structure.clear();
    f.s.dlg_FileName = "run.spc";
    SaveBatchFile(f.s);
    EXPECT_EQ(f.dir.read("run.spc"), "a.dat   1  g  s   2  \r\n");
    EXPECT_EQ(f.boxes(),
              "[VKScontrol.check1 warning] datafile a.dat appears not to exist in sample# 1 and spectrum# 0\n"
              "[VKScontrol.check1 warning] geometry file g appears not to exist in sample# 1 and spectrum# 0\n"
              "[VKScontrol.check1 warning] structure file s appears not to exist in sample# 1 and spectrum# 0\n"
              "[VKScontrol.check1 warning] datafile b.dat appears not to exist in sample# 1 and spectrum# 1\n"
              "[VKScontrol.check1 warning] geometry file g appears not to exist in sample# 1 and spectrum# 1\n"
              "[VKScontrol.check1 warning] structure file name  appears not to be present in sample# 2 and "
              "spectrum# 0\n");
    EXPECT_EQ(f.s.UnsavedMark, "");
}

TEST(SaveBatchFile, RefusesNamesTheOlderEnginesCannotOpen) {
    BatchFixture f;
    f.dir.write("run.spc", "a 1 g s\r\n");
    f.read();
    for (const char* name : {"with blank.spc", "thirteen1.spc", "a.spcx", "abcdefghi.sp", "notes.txt"}) {
        f.s.dlg_FileName = name;
        SaveBatchFile(f.s);
    }
    EXPECT_EQ(f.boxes(),
              "[VKScontrol.check1 warning] with blank.spc is a non DOS name which is not allowed (must be "
              "????????.???, no spaces). Please use another name\n"
              "[VKScontrol.check1 warning] thirteen1.spc is a non DOS name which is not allowed (must be "
              "????????.???, no spaces). Please use another name\n"
              "[VKScontrol.check1 warning] a.spcx is a non DOS name which is not allowed (must be ????????.???, no "
              "spaces). Please use another name\n"
              "[VKScontrol.check1 warning] abcdefghi.sp is a non DOS name which is not allowed (must be "
              "????????.???, no spaces). Please use another name\n"
              "[VKScontrol.check1 warning] notes.txt is not a batch file\n");
    EXPECT_FALSE(f.dir.exists("notes.txt"));
    // A VKS9 geometry lifts the rule.
    f.t.answers.clear();
    f.s.Geometry.Syntax = 2;
    f.s.dlg_FileName = "a longer name.spc";
    SaveBatchFile(f.s);
    EXPECT_TRUE(f.dir.exists("a longer name.spc"));
    EXPECT_EQ(f.s.BatchName, "a longer name");
}

TEST(SaveBatchFile, AsksBeforeOverwritingThroughTheDialog) {
    BatchFixture f;
    f.dir.write("run.spc", "a 1 g s\r\n");
    f.dir.write("other.spc", "keep\r\n");
    f.read();
    EXPECT_EQ(mnuSaveBatch_Click(f.s), SaveStep::AskForName);
    f.t.answers.push(mb::Cancel);
    DLG_Save_batch_OK(f.s, "other");
    EXPECT_EQ(f.dir.read("other.spc"), "keep\r\n");
    DLG_Save_batch_OK(f.s, "OTHER.SPC");
    EXPECT_EQ(f.dir.read("other.spc"), "a   1  g  s  \r\n");
    const auto boxes = f.batchBoxes();
    ASSERT_GE(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].message.text, "Over write other.spc?");
    EXPECT_EQ(boxes[0].message.buttons, mb::OKCancel);
    EXPECT_EQ(boxes[1].message.text, "Over write OTHER.SPC?");
}

TEST(SaveCommands, RefuseASampleWithoutStructureOrAssociations) {
    BatchFixture f;
    f.dir.write("run.spc", "a 1 g s\r\n");
    f.read();
    f.s.lists.List1.items.push_back("unpaired.dat");
    EXPECT_EQ(mnuSave_Click(f.s), SaveStep::Refused);
    f.s.current().NUnassociated = 1;
    EXPECT_EQ(mnuSaveBatch_Click(f.s), SaveStep::Refused);
    f.s.current().Structure.clear();
    EXPECT_EQ(mnuSave_Click(f.s), SaveStep::Refused);
    EXPECT_EQ(mnuSaveBatch_Click(f.s), SaveStep::Refused);
    EXPECT_EQ(f.boxes(),
              "[Error!] Not all Data Files in sample 1 have geometries\n"
              "[SaveBatch Error!] Not all Data Files in sample 1 have geometries\n"
              "[Error!] No structure file selected for this sample - please select one\n"
              "[SaveBatch Error!] No structure file selected for this sample - please select one\n");
}

TEST(Comments, SectionsFollowTheSamplesAndSaveOnlyWhenPresent) {
    BatchFixture f;
    f.dir.write("run.spc", "a 1 g s\r\nb 1 g t\r\nc 1 g u\r\n");
    f.dir.write("run.txt", "batch line\r\n\r\nsecond\r\n###########################\r\nmore\r\n"
                           "###########################\r\none\r\n###########################\r\nunclosed\r\n");
    f.read();
    EXPECT_EQ(f.s.BatchComment, "batch line\r\nsecond\r\n");
    EXPECT_EQ(f.s.BatchComment2, "more\r\n");
    EXPECT_EQ(f.s.Samples[1].Comment, "one\r\n");
    EXPECT_EQ(f.s.Samples[2].Comment, "");
    EXPECT_EQ(f.s.lists.Label12, "Sample: one\r\n");
    f.s.Samples[3].Comment = "three\r\n";
    SaveBatchComments(f.s, true);
    EXPECT_EQ(f.dir.read("run.txt"),
              "batch line\r\nsecond\r\n###########################\r\nmore\r\n###########################\r\n"
              "one\r\n###########################\r\n###########################\r\nthree\r\n"
              "###########################\r\n");
    f.s.BatchName = "nocomm";
    SaveBatchComments(f.s, true);
    EXPECT_FALSE(f.dir.exists("nocomm.txt"));
}

TEST(MainView, StepsThroughSamplesWrappingAround) {
    BatchFixture f;
    f.dir.write("run.spc", "a 1 g s\r\nb 2 g t 1\r\nc 3 h u 2\r\nd 4 k (1)\r\n");
    f.read();
    mnuPrevSample_Click(f.s);
    EXPECT_EQ(f.s.CurrentSample, 3);
    EXPECT_EQ(f.s.lists.List3.items, (std::vector<std::string>{"c ==> h", "d ==> k (1)"}));
    EXPECT_EQ(f.s.lists.List4.items, std::vector<std::string>{"u"});
    EXPECT_EQ(f.s.lists.Combo3.index, 2);
    mnuNextSample_Click(f.s);
    EXPECT_EQ(f.s.CurrentSample, 1);
    VScroll1_Change(f.s, 1);
    EXPECT_EQ(f.s.CurrentSample, 2);
    VScroll1_Change(f.s, 0);
    EXPECT_EQ(f.s.CurrentSample, 1);
}

}  // namespace
}  // namespace halvo
