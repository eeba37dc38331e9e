// The geometry reader on the cases of tests/data/geometry/*.txt. A case file holds cases "=== name",
// each with sections "--- kind":
//   session   lines: "structure NAME" (a file of the case, else tests/data/geometry/NAME.str, read as
//             the current structure before the geometry), "warnings off", "engine N",
//             "answers Yes No ...", "name NAME" (what ReadGeometry is given; default "case"),
//             "no workdir" (FilePath empty), "reset" (ResetGeometry before every read; default once),
//             "read NAME" (a further read into the same record, with the boxes of both)
//   file NAME a file of the working directory, CR LF added to each line ("\t" stands for a tab); "file"
//             alone is the geometry, case.geo
//   rbs       the geometry case.geo: the nine fixed lines of a plain RBS file (kRbsLines), then these
//   result    "read" or "fail": what ReadGeometry returned (of the last read)
//   fields    "Field value" lines: each field of GeometryFields must have that value ("" when the line
//             has no value); an element row without a setting has the fields of a fresh row
//   messages  the boxes of the read, "[title] text" each, in order; the working directory is written
//             $DIR, the engine directory $ENGINE
//   comments  the whole comment store, "n: text" for each line that holds something
// A case with a "save" or "written" section then saves the record as the geometry editor does:
//   save      lines: "as NAME" (default case.geo), "analysis N" (the editor's analysis type; default
//             the kind read), "syntax N" (the editor's generation switch first), "answers Yes No ...",
//             "version N" (the engine generation at the save), "no overwrite question", "sample"
//             (the editor was opened on a sample)
//   save result      "written", "cancelled", "name refused", "problems shown", "failed"
//   save messages    the boxes of the save
//   written   the saved file, each line ended by CR LF; "(empty)" for an empty file, "(no file)"
//   reread    the saved file is read again into a fresh record: "Field value" for each field that
//             comes back different from the first read; every other field must come back the same.
//             "fails" alone: the read of the saved file fails.
// Whenever a save replaced a file, "<name>~" must hold the file as it was.
// HALVO_GOLDEN_PRINT=FILE appends what the code makes of each case to FILE, for writing a new case.
#include <gtest/gtest.h>

#include "case_file.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "../sample/chemistry_fixture.h"
#include "geometry/geometry_file.h"
#include "geometry/geometry_writer.h"
#include "geometry/syntax.h"
#include "platform/files.h"
#include "sample/structure_file.h"
#include "text/tokens.h"

namespace halvo {
namespace {

struct GeoCase {
    std::string name;
    std::vector<std::string> session;
    std::vector<std::pair<std::string, std::string>> files;
    std::string result;
    std::vector<std::string> fields;
    bool hasMessages = false, hasComments = false;
    std::string messages, comments;
    bool saves = false, hasWritten = false, hasSaveMessages = false, hasReread = false;
    std::vector<std::string> save, reread;
    std::string saveResult, written, saveMessages;
};

using halvo::test::Unescape;

// The fixed lines of a plain RBS file; a "--- rbs" section holds the lines that follow them (line 10 on).
constexpr const char* kRbsLines = "19\r\n60 600\r\n4He 4He\r\n2000\r\n15\r\nIBM\r\n0 165\r\n3.6\r\n1.95 45\r\n";

std::vector<GeoCase> ReadCases(const std::string& data) {
    return halvo::test::ReadCaseFile<GeoCase>(data, [&](GeoCase& c, const std::string& kind, std::vector<std::string> section) {
        const std::vector<std::string> lines = halvo::test::WithoutTrailingBlanks(section);
        const std::string joined = halvo::test::JoinLines(lines);
        if (kind == "session") {
            c.session = lines;
        } else if (kind == "rbs") {
            std::string bytes = kRbsLines;
            for (const auto& l : lines) bytes += Unescape(l) + "\r\n";
            c.files.emplace_back("case.geo", bytes);
        } else if (kind.starts_with("file")) {
            std::string bytes;
            for (const auto& l : lines) bytes += Unescape(l) + "\r\n";
            c.files.emplace_back(kind.size() > 5 ? kind.substr(5) : "case.geo", bytes);
        } else if (kind == "result") {
            c.result = lines.empty() ? "" : lines[0];
        } else if (kind == "fields") {
            c.fields = lines;
        } else if (kind == "messages") {
            c.hasMessages = true;
            c.messages = joined;
        } else if (kind == "comments") {
            c.hasComments = true;
            for (const auto& l : lines) c.comments += Unescape(l) + "\n";
        } else if (kind == "save") {
            c.saves = true;
            c.save = lines;
        } else if (kind == "save result") {
            c.saves = true;
            c.saveResult = lines.empty() ? "" : lines[0];
        } else if (kind == "save messages") {
            c.saves = c.hasSaveMessages = true;
            c.saveMessages = joined;
        } else if (kind == "written") {
            c.saves = c.hasWritten = true;
            if (lines.size() == 1 && lines[0] == "(no file)")
                c.written = lines[0];
            else if (!(lines.size() == 1 && lines[0] == "(empty)"))
                for (const auto& l : lines) c.written += Unescape(l) + "\r\n";
        } else if (kind == "reread") {
            c.saves = c.hasReread = true;
            c.reread = lines;
        }
    });
}

// The fields of a fresh element row, which GeometryFields leaves out of a row without a setting.
const std::map<std::string, std::string>& FreshRow() {
    static const std::map<std::string, std::string> fresh = [] {
        GeometryRecord g;
        g.Elements[0].NonR = -1;  // a setting, so that every field is listed
        std::map<std::string, std::string> out;
        for (const auto& [k, v] : GeometryFields(g))
            if (k.starts_with("Elements[0].")) out[k.substr(12)] = v;
        out["NonR"] = "0";
        return out;
    }();
    return fresh;
}

std::string FieldValue(const std::map<std::string, std::string>& fields, const std::string& name) {
    if (const auto it = fields.find(name); it != fields.end()) return it->second;
    const auto dot = name.find("].");
    if (name.starts_with("Elements[") && dot != std::string::npos) {
        const auto it = FreshRow().find(name.substr(dot + 2));
        if (it != FreshRow().end()) return it->second;
    }
    return "";
}

struct Outcome {
    bool read = false;
    std::map<std::string, std::string> fields;
    std::vector<std::pair<std::string, std::string>> ordered;
    std::string messages, comments;
    // The save, when the case has one.
    std::string saveResult, written, saveMessages, backupProblem;
    bool reread = false;
    std::vector<std::pair<std::string, std::string>> changed;  // fields that came back different
};

std::string Masked(std::string text, const Session& s, const std::string& dir) {
    for (const auto& [path, mark] : {std::pair{dir, "$DIR"}, std::pair{s.PathVKS, "$ENGINE"}})
        for (size_t at; !path.empty() && (at = text.find(path)) != std::string::npos;) text.replace(at, path.size(), mark);
    return text;
}

const char* ResultName(GeometrySave r) {
    switch (r) {
        case GeometrySave::Written: return "written";
        case GeometrySave::Cancelled: return "cancelled";
        case GeometrySave::NameRefused: return "name refused";
        case GeometrySave::ProblemsShown: return "problems shown";
        case GeometrySave::WriteFailed: return "failed";
    }
    return "";
}

// The editor's save of what the case read, then a read of the saved file into a fresh record.
void Save(const GeoCase& c, const test::ScratchDir& dir, test::ChemSession& t, Outcome& o) {
    Session& s = t.session;
    std::string target = "case.geo";
    s.GeoEditor.Combo5 = s.Geometry.Kind;
    int syntax = -1;
    for (const auto& option : c.save) {
        std::string rest = option;
        const std::string key = text::NextToken(rest, " ");
        if (key == "as") target = rest;
        if (key == "analysis") s.GeoEditor.Combo5 = std::int16_t(std::stoi(rest));
        if (key == "syntax") syntax = std::stoi(rest);
        if (key == "version") s.VKSversion = std::int16_t(std::stoi(rest));
        if (key == "no") s.GeoEditor.OverwriteAsk = false;
        if (key == "sample") s.GeoEditor.OpenedWithSample = true;
        if (key == "answers")
            while (!rest.empty()) t.answers.push(AnswerFromName(text::NextToken(rest, " ")));
    }
    t.answers.clear();
    if (syntax != -1) CorrectGeometrySyntax(s, syntax);
    const std::string stem = target.substr(0, target.rfind('.'));
    // The file a save of that name writes: one that exists in another case is rewritten.
    const auto found = platform::ResolveCase(dir.path(), stem + ".geo");
    const std::string file = found ? std::filesystem::path(*found).filename().string() : stem + ".geo";
    const bool existed = dir.exists(file);
    const std::string before = existed ? dir.read(file) : "";
    const GeometrySave result = Check2_Click(s, target);
    o.saveResult = ResultName(result);
    o.saveMessages = Masked(t.answers.transcriptText(), s, dir.path());
    o.written = dir.exists(file) ? dir.read(file) : "(no file)";
    const bool replaced = existed && (result == GeometrySave::Written || result == GeometrySave::ProblemsShown);
    if (replaced && (!dir.exists(file + "~") || dir.read(file + "~") != before))
        o.backupProblem = file + "~ does not hold the file as it was";
    if (result != GeometrySave::Written) return;

    t.answers.clear();
    ResetGeometry(s);
    o.reread = ReadGeometry(s, stem);
    // Rows without a setting list only their name, so each side is read with the fresh row's defaults.
    std::map<std::string, std::string> again;
    for (const auto& [k, v] : GeometryFields(s.Geometry)) again[k] = v;
    std::map<std::string, bool> names;
    for (const auto& [k, v] : o.fields) names[k] = true;
    for (const auto& [k, v] : again) names[k] = true;
    for (const auto& [k, present] : names)
        if (FieldValue(o.fields, k) != FieldValue(again, k)) o.changed.emplace_back(k, FieldValue(again, k));
}

Outcome Run(const GeoCase& c, const test::ScratchDir& dir) {
    test::ChemSession t;
    Session& s = t.session;
    s.FilePath = dir.path();
    for (const auto& [file, bytes] : c.files) {
        std::filesystem::create_directories(std::filesystem::path(dir.file(file)).parent_path());
        dir.write(file, bytes);
    }
    std::string name = "case";
    std::vector<std::string> reads;
    bool resetEach = false;
    for (const auto& option : c.session) {
        std::string rest = option;
        const std::string key = text::NextToken(rest, " ");
        if (key == "structure") {
            if (!dir.exists(rest + ".str")) dir.write(rest + ".str", test::ReadData("geometry/" + rest + ".str"));
            ReadStructureFile(s, rest, nullptr, &s.ElementList);
            t.answers.clear();
        }
        if (key == "warnings") SetWarningsFlag(s, rest != "off");
        if (key == "engine") {
            s.VKSversionNumber = std::int16_t(std::stoi(rest));
            s.VKSversion = std::int16_t(s.VKSversionNumber / 1000);
        }
        if (key == "name") name = rest;
        if (key == "read") reads.push_back(rest);
        if (key == "reset") resetEach = true;
        if (key == "no") s.FilePath.clear();
        if (key == "answers")
            while (!rest.empty()) t.answers.push(AnswerFromName(text::NextToken(rest, " ")));
    }
    reads.insert(reads.begin(), name);
    Outcome o;
    for (size_t i = 0; i < reads.size(); ++i) {
        if (i == 0 || resetEach) ResetGeometry(s);
        o.read = ReadGeometry(s, reads[i]);
    }
    o.ordered = GeometryFields(s.Geometry);
    for (const auto& [k, v] : o.ordered) o.fields[k] = v;
    o.messages = Masked(t.answers.transcriptText(), s, dir.path());
    for (size_t n = 0; n < s.Geometry.Comments.size(); ++n)
        if (!s.Geometry.Comments[n].empty()) o.comments += std::to_string(n) + ": " + s.Geometry.Comments[n] + "\n";
    if (c.saves) Save(c, dir, t, o);
    return o;
}

void Print(std::ostream& out, const GeoCase& c, const Outcome& o) {
    out << "=== " << c.name << "\n--- result\n" << (o.read ? "read" : "fail") << "\n--- fields\n";
    for (const auto& [k, v] : o.ordered) out << k << " " << v << "\n";
    out << "--- messages\n" << o.messages << "--- comments\n" << o.comments;
    if (!c.saves) return;
    out << "--- save result\n" << o.saveResult << "\n--- save messages\n" << o.saveMessages << "--- written\n";
    std::string written = o.written;
    for (size_t at; (at = written.find("\r\n")) != std::string::npos;) written.replace(at, 2, "\n");
    out << (written.empty() ? "(empty)\n" : written) << (written == "(no file)" ? "\n" : "") << "--- reread\n";
    if (!o.reread && o.saveResult == "written") out << "fails\n";
    for (const auto& [k, v] : o.changed) out << k << " " << v << "\n";
}

void CheckSave(const GeoCase& c, const Outcome& o) {
    EXPECT_EQ(c.saveResult.empty() ? "written" : c.saveResult, o.saveResult);
    if (c.hasSaveMessages) {
        EXPECT_EQ(c.saveMessages, o.saveMessages);
    }
    if (c.hasWritten) {
        EXPECT_EQ(c.written, o.written);
    }
    EXPECT_EQ("", o.backupProblem);
    if (!c.hasReread || o.saveResult != "written") return;
    const bool fails = c.reread.size() == 1 && c.reread[0] == "fails";
    EXPECT_EQ(!fails, o.reread) << "the read of the saved file";
    if (fails) return;
    std::map<std::string, std::string> want;
    for (const std::string& line : c.reread) {
        const auto blank = line.find(' ');
        want[line.substr(0, blank)] = blank == std::string::npos ? "" : line.substr(blank + 1);
    }
    std::map<std::string, std::string> got(o.changed.begin(), o.changed.end());
    for (const auto& [field, value] : got) {
        const auto it = want.find(field);
        if (it == want.end())
            ADD_FAILURE() << field << " came back as " << value << " (not listed)";
        else
            EXPECT_EQ(it->second, value) << field;
    }
    for (const auto& [field, value] : want)
        if (!got.count(field)) ADD_FAILURE() << field << " came back unchanged, listed as " << value;
}

void RunFile(const std::string& file, size_t atLeast) {
    const auto cases = ReadCases(test::ReadData("geometry/" + file));
    ASSERT_GE(cases.size(), atLeast) << file;
    const char* printTo = std::getenv("HALVO_GOLDEN_PRINT");
    std::ofstream print;
    if (printTo) print.open(printTo, std::ios::app);
    for (const GeoCase& c : cases) {
        SCOPED_TRACE(file + ": " + c.name);
        test::ScratchDir dir;
        const Outcome o = Run(c, dir);
        if (printTo) Print(print, c, o);
        if (!c.result.empty()) {
            EXPECT_EQ(c.result, o.read ? "read" : "fail");
        }
        for (const std::string& line : c.fields) {
            const auto blank = line.find(' ');
            const std::string field = line.substr(0, blank);
            const std::string want = blank == std::string::npos ? "" : line.substr(blank + 1);
            EXPECT_EQ(want, FieldValue(o.fields, field)) << field;
        }
        if (c.hasMessages) {
            EXPECT_EQ(c.messages, o.messages);
        }
        if (c.hasComments) {
            EXPECT_EQ(c.comments, o.comments);
        }
        if (c.saves) CheckSave(c, o);
    }
}

TEST(GeometryGolden, FixedLines) { RunFile("fixed_lines.txt", 20); }
TEST(GeometryGolden, CommentStore) { RunFile("comments.txt", 5); }
TEST(GeometryGolden, Indirection) { RunFile("readgeo.txt", 6); }
TEST(GeometryGolden, Directives) { RunFile("directives.txt", 30); }
TEST(GeometryGolden, PileUp) { RunFile("pileup.txt", 8); }
TEST(GeometryGolden, Foils) { RunFile("foils.txt", 6); }
TEST(GeometryGolden, ElementLines) { RunFile("element_lines.txt", 12); }
TEST(GeometryGolden, FilesNamed) { RunFile("files_named.txt", 5); }
TEST(GeometryGolden, Syntax) { RunFile("syntax.txt", 6); }
TEST(GeometryWriteGolden, FixedLines) { RunFile("write_fixed.txt", 12); }
TEST(GeometryWriteGolden, Directives) { RunFile("write_directives.txt", 40); }
TEST(GeometryWriteGolden, ElementLines) { RunFile("write_elements.txt", 14); }
TEST(GeometryWriteGolden, PileUp) { RunFile("write_pileup.txt", 19); }
TEST(GeometryWriteGolden, Derived) { RunFile("write_derived.txt", 3); }
TEST(GeometryWriteGolden, Questions) { RunFile("write_save.txt", 13); }

}  // namespace
}  // namespace halvo
