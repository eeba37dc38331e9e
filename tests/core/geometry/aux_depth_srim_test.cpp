// The SRIM installation check, the DEPTH codes' checks and their parameter file, the matrix search.
#include <gtest/gtest.h>

#include <filesystem>

#include "geometry/aux_files.h"
#include "geometry/depth_parameters.h"
#include "aux_case_file.h"
#include "test_support.h"

namespace halvo::test {
namespace {

namespace fs = std::filesystem;

const std::string kSrimHelp =
    "SRIM 2003 stopping powers are generally highly recommended\n"
    "To call SRIM from a program you need 'SRModule.exe' \n"
    "Obviously,  the stopping power tables in 'SCOEF03.dat' and 'SNUC03.dat' are also essential\n"
    "You also need the version number in the file 'VERSION': \n"
    "if this is not present the SRIM code complains loudly about being out of date";

void WriteSrim(const ScratchDir& d, const std::string& sub, size_t versionLength, size_t snucLength,
               bool withScoef = true) {
    fs::create_directories(d.file(sub));
    d.write(sub + "/srmodule.EXE", std::string(4096, 'x'));
    d.write(sub + "/VERSION", std::string(versionLength, 'v'));
    if (withScoef) d.write(sub + "/SCOEF03.dat", std::string(1000, 's'));
    d.write(sub + "/SNUC03.DAT", std::string(snucLength, 'n'));
}

TEST(AuxSrim, AGoodInstallationSaysNothingAndIsCheckedOnce) {
    ScratchDir d;
    WriteSrim(d, "srim", 51, 200001);
    TestSession t(d.path());
    t.session.Aux.SRIMPath = d.file("srim");
    CheckSRIM(t.session);
    EXPECT_TRUE(t.answers.transcript().empty());
    EXPECT_TRUE(t.session.Aux.SRIMChecked);
}

TEST(AuxSrim, MissingAndShortFilesAreListedOncePerSession) {
    ScratchDir d;
    WriteSrim(d, "engine", 50, 200000, false);
    TestSession t(d.path());
    t.session.PathVKS = d.file("engine");  // no SRIMPath: the engine's directory
    CheckSRIM(t.session);
    ASSERT_EQ(t.answers.transcript().size(), 1u);
    const Message& m = t.answers.transcript()[0].message;
    EXPECT_EQ(m.title, "ReadGeometry: SRIM installation error");
    EXPECT_EQ(m.buttons, mb::OKCancel + mb::Exclamation);
    EXPECT_EQ(m.text,
              "SRIM03 stopping powers have been requested but these files cannot be found (or are suspected of "
              "corruption) in the path " +
                  d.file("engine") +
                  ":\n"
                  "VERSION suspected corrupt (length(=50)\n"
                  "SCOEF03.dat\n"
                  "SNUC03.dat suspected corrupt (length(=200000)\n" +
                  kSrimHelp + " (press Cancel to silence this message)");
    t.answers.clear();
    CheckSRIM(t.session);
    EXPECT_TRUE(t.answers.transcript().empty());
}

TEST(AuxDepthParameters, WrittenAndReadBack) {
    DepthParameters p;
    p.Executable = "C:\\DEPTH\\WDEPTH";
    p.Bohr = true;
    p.RectangularAperture = true;
    p.Aperture[0] = 2.5f;
    p.Aperture[1] = 8;
    p.Spot[0] = 1;
    p.DetectorArea = 19.6f;
    const std::string text = WriteDepthParameters(p);
    EXPECT_EQ(text,
              "C:\\DEPTH\\WDEPTH\r\nBohr straggling\r\nRectangular detector aperture 2.5 8\r\n"
              "Circular beam spot 1\r\nDetector area 19.6\r\n");
    DepthParameters q;
    ASSERT_TRUE(ReadDepthParameters(text, q));
    EXPECT_EQ(q.Executable, p.Executable);
    EXPECT_TRUE(q.Bohr);
    EXPECT_TRUE(q.RectangularAperture);
    EXPECT_FLOAT_EQ(q.Aperture[1], 8);
    EXPECT_FALSE(q.RectangularSpot);
    EXPECT_FLOAT_EQ(q.Spot[0], 1);
    EXPECT_FLOAT_EQ(q.DetectorArea, 19.6f);
    EXPECT_FALSE(ReadDepthParameters("\r\n  \r\n", q));
}

// A working directory with a DEPTH parameter file naming <engine>/bin/wdepth, and the engine dir.
struct DepthFixture {
    ScratchDir d;
    TestSession t{d.path()};
    DepthFixture() {
        fs::create_directories(d.file("engine/bin"));
        t.session.PathVKS = d.file("engine");
        t.session.VKSversion = 9;
        t.session.VKSverSyn = 9;
        DepthParameters p;
        p.Executable = "bin\\wdepth";
        d.write("depth.par", WriteDepthParameters(p));
        t.session.Geometry.Elements.resize(3);
    }
    std::string run() {
        t.answers.clear();
        CheckDEPTH(t.session);
        return ReplaceAll(t.answers.transcriptText(), d.path(), "<dir>");
    }
};

const std::string kSilence = " (press Cancel to silence this message)";

TEST(AuxDepth, DepthTablesMustExist) {
    DepthFixture f;
    auto& g = f.t.session.Geometry;
    EXPECT_EQ(f.run(), "");  // nothing asked for yet: the first check of a read says nothing
    EXPECT_TRUE(f.t.session.Aux.DEPTHChecked);
    g.Elements[1].Depth = -1;
    g.Elements[1].DepthFile = "si.dpt";
    g.Elements[2].Depth = -1;
    g.Elements[2].DepthFile = "O.DPT";
    f.d.write("o.dpt", "table");
    EXPECT_EQ(f.run(),
              "[ReadGeometry: DEPTH output file not found error] Treifar's DEPTH straggle calculations have been "
              "requested but the DEPTH input file si.dptcannot be found" +
                  kSilence + "\n");
}

TEST(AuxDepth, ByCode) {
    struct Case {
        std::int16_t mdepth, vksVersion, vksVerSyn;
        std::string parFile;
        bool withExecutable;
        std::string transcript;
    };
    const std::string notFound =
        "[ReadGeometry WDEPTH installation error] Treifar's DEPTH straggle calculations have been requested but "
        "the executable bin\\wdepth.EXEcannot be found (full pathname not found is: <dir>/engine/bin/wdepth.EXE\n"
        "You can correct this by using the More button in the geometry file editor,  then the DEPTH edit "
        "button" +
        kSilence + "\n";
    const std::string obsolete =
        "[Module1.CheckDEPTH warning] Note that MDEPTH is obsolete 16bit code that runs very slow on 32bit "
        "machines.  Use WDEPTH instead" +
        kSilence + "\n";
    const Case cases[] = {
        {1, 9, 9, "depth.par", true, ""},
        {1, 9, -1, "DEPTH.PAR", true, ""},
        {1, 9, 9, "depth.par", false, notFound},
        {1, 8, 8, "depth.par", true,
         "[Module1.CheckDEPTH warning] WDEPTH not available for VKS versions below 9" + kSilence + "\n"},
        {2, 9, 9, "depth.par", true, obsolete},
        {2, 9, 7, "depth.par", false, obsolete + ReplaceAll(notFound, "WDEPTH installation", "MDEPTH installation")},
        {3, 9, 9, "depth.par", true,
         "[Module1.CheckDEPTH warning] Code error: MDepthParams.MDEPTH = 3" + kSilence + "\n"},
        {1, 9, 9, "other.par", true,
         "[ReadGeometry DEPTH setup error] DEPTH problem:  location of executable could not be determined since "
         "parameter file other.par could not be found" +
             kSilence + "\n"},
        {1, 9, 0, "depth.par", true,
         "[Module1.CheckDEPTH warning] Code error: VKSverSyn =0;  cannot check for presence of DEPTH "
         "executable." +
             kSilence + "\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.mdepth) + " " + c.parFile + " " + std::to_string(c.vksVerSyn));
        DepthFixture f;
        if (c.withExecutable) f.d.write("engine/bin/WDEPTH.exe", "MZ");
        f.t.session.VKSversion = c.vksVersion;
        f.t.session.VKSverSyn = c.vksVerSyn;
        f.t.session.Geometry.MDepthParams.MDEPTH = c.mdepth;
        f.t.session.Geometry.MDepthParams.File = c.parFile;
        EXPECT_EQ(f.run(), c.transcript);
    }
}

// The reader checks before a DEPTH directive only while the session has no mark, and always after
// it: a second directive in the session is checked once, after it.
TEST(AuxDepth, SecondDirectiveOfASessionIsCheckedOnlyAfterIt) {
    DepthFixture f;
    auto& s = f.t.session;
    s.Geometry.MDepthParams.MDEPTH = 2;
    s.Geometry.MDepthParams.File = "depth.par";
    f.d.write("engine/bin/wdepth.exe", "MZ");
    auto directive = [&] {
        if (!s.Aux.DEPTHChecked) CheckDEPTH(s);
        CheckDEPTH(s);
    };
    directive();
    EXPECT_EQ(f.t.answers.transcript().size(), 2u);
    f.t.answers.clear();
    directive();
    EXPECT_EQ(f.t.answers.transcript().size(), 1u);
}

struct SigmaFixture {
    ScratchDir d;
    TestSession t{d.path()};
    SigmaFixture() {
        fs::create_directories(d.file("engine/SigmaCalc"));
        d.write("engine/SigmaCalc/sigmacalc_R4HeSi.dat", "matrix");
        d.write("engine/SigmaCalc/SIGMACALC_E4HEO.DAT", "matrix");
        t.session.PathVKS = d.file("engine");
        auto& g = t.session.Geometry;
        g.Ion = " 4He ";
        g.Elements.resize(5);
        const char* names[] = {"", "Si", "O ", "C", "Si"};  // row 4: a logical element
        for (int i = 0; i < 5; ++i) g.Elements[size_t(i)].ElementName = names[i];
    }
    std::string marks() const {
        std::string out;
        for (const auto& e : t.session.Geometry.Elements) out += std::to_string(e.NonR) + ":" + e.NonRFile + " ";
        return out;
    }
};

TEST(AuxSigma, MatricesFoundForRbsAndErda) {
    struct Case {
        std::int16_t kind;
        std::string marks;
    };
    const Case cases[] = {
        {0, "-1: -1:(SigCalc matrix) 0: 0: 0: "},
        {1, "-1: 0: -1:(SigCalc matrix) 0: 0: "},
        {2, "0: 0: 0: 0: 0: "},
        {4, "0: 0: 0: 0: 0: "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.kind);
        SigmaFixture f;
        f.t.session.Geometry.Kind = c.kind;
        FindSigmaCalc(f.t.session, 3);
        EXPECT_EQ(f.marks(), c.marks);
        EXPECT_TRUE(f.t.answers.transcript().empty());
    }
}

TEST(AuxSigma, SkippedWhenACrossSectionIsAlreadyGiven) {
    SigmaFixture f;
    auto& g = f.t.session.Geometry;
    g.Elements[0].NonR = -1;
    g.Elements[3].NonR = -1;
    g.Elements[3].NonRFile = "c.r33";
    FindSigmaCalc(f.t.session, 3);
    EXPECT_EQ(f.marks(), "-1: 0: 0: -1:c.r33 0: ");
}

TEST(AuxSigma, NothingWithoutTheFolderOrAnyMatch) {
    SigmaFixture f;
    f.t.session.Geometry.Ion = "1H";
    FindSigmaCalc(f.t.session, 4);
    EXPECT_EQ(f.marks(), "0: 0: 0: 0: 0: ");
    f.t.session.PathVKS = f.d.file("nowhere");
    f.t.session.Geometry.Ion = "4He";
    FindSigmaCalc(f.t.session, 4);
    EXPECT_EQ(f.marks(), "0: 0: 0: 0: 0: ");
}

}  // namespace
}  // namespace halvo::test
