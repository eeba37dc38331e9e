// Batch commands: read and show, check and repair, save, and the derived names.
#include <iostream>

#include "cli.h"
#include "geometry/syntax.h"
#include "platform/files.h"
#include "sample/element_table.h"
#include "session/batch_commands.h"
#include "session/batch_file.h"
#include "session/derived_names.h"
#include "session/main_view.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo::cli {
namespace {

// Opens a batch as the open command does: its directory becomes the working directory unless the
// name has none, in which case --workdir is used.
bool Open(Context& c, const std::string& path) {
    // The program loads the data tables at start; the geometries of the sample shown need them.
    if (!c.engineDir.empty() && !c.session.Tables.IsotopesLoaded) LoadElementTables(c.session);
    const std::string full = path.find_first_of("\\/") == std::string::npos ? platform::JoinPath(c.workDir, path) : path;
    mnuOpenBatch_Click(c.session);
    OpenBatchFile(c.session, full);
    return !c.session.lists.Combo1.items.empty();
}

std::string JsonList(const std::vector<std::string>& items) {
    std::string out = "[";
    for (size_t i = 0; i < items.size(); ++i) out += (i ? "," : "") + JsonString(items[i]);
    return out + "]";
}

std::string Indent(const std::string& text, const std::string& pad) {
    std::string out;
    size_t start = 0;
    while (start < text.size()) {
        auto end = text.find("\r\n", start);
        if (end == std::string::npos) end = text.size();
        out += pad + text.substr(start, end - start) + "\n";
        start = end + 2;
    }
    return out;
}

// The headless view of a batch: what the main window shows for each sample in turn.
void PrintBatch(Context& c) {
    Session& s = c.session;
    std::string samplesJson = "[";
    if (!c.json) {
        std::cout << "Batch " << s.BatchName << " in " << s.FilePath << ": " << s.NSamples << " sample"
                  << (s.NSamples == 1 ? "" : "s") << "\n";
        if (!s.BatchComment.empty()) std::cout << Indent(s.BatchComment, "  | ");
        if (!s.BatchComment2.empty()) std::cout << Indent(s.BatchComment2, "  | ");
        std::cout << s.lists.Label15 << "\n";
    }
    for (int i = 0; i < int(s.lists.Combo1.items.size()); ++i) {
        Combo1_Click(s, i);
        const Sample& sample = s.current();
        const auto& l = s.lists;
        if (c.json) {
            samplesJson += std::string(i ? "," : "") + "{\"number\":" + std::to_string(i + 1) +
                           ",\"structure\":" + JsonString(sample.Structure) +
                           ",\"verbosity\":" + std::to_string(sample.Verbosity) +
                           ",\"comment\":" + JsonString(sample.Comment) + ",\"syntaxLabel\":" + JsonString(l.Label14) +
                           ",\"dataFiles\":" + JsonList(l.List1.items) +
                           ",\"geometries\":" + JsonList(l.List2.items) + ",\"associations\":" +
                           JsonList(l.List3.items) + ",\"charges\":" + JsonList(l.List5.items) + "}";
            continue;
        }
        std::cout << "\nSample " << (i + 1) << ": structure " << (sample.Structure.empty() ? "(none)" : sample.Structure)
                  << ", verbosity " << (l.Combo3.index >= 0 ? l.Combo3.items[size_t(l.Combo3.index)] : "?") << l.Label14
                  << "\n";
        if (!sample.Comment.empty()) std::cout << Indent(sample.Comment, "  | ");
        for (size_t a = 0; a < l.List3.items.size(); ++a)
            std::cout << "  " << (a + 1) << ". " << l.List3.items[a] << "   charge " << l.List5.items[a] << " uC\n";
    }
    if (c.json) {
        c.putString("batch", s.BatchName);
        c.putString("directory", s.FilePath);
        c.put("samples", samplesJson + "]");
        c.putString("batchComment", s.BatchComment);
        c.putString("batchComment2", s.BatchComment2);
        c.putString("verbosityLabel", s.lists.Label15);
        c.putString("title", s.MainTitle);
    }
}

const Register show{{"batch-show", "FILE.spc", "read a batch and show every sample as the main window would",
                     [](Context& c, const std::vector<std::string>& a) {
                         if (a.size() != 1) return Misuse(Registry().at("batch-show"));
                         if (!Open(c, a[0])) return kFailed;
                         PrintBatch(c);
                         return kOk;
                     }}};

const Register check{{"batch-check", "FILE.spc [--repair]",
                      "look for double quotes and bare LFs; with --repair turn bare LFs into CR LF",
                      [](Context& c, const std::vector<std::string>& a) {
                          if (a.empty() || a.size() > 2 || (a.size() == 2 && a[1] != "--repair"))
                              return Misuse(Registry().at("batch-check"));
                          std::string path = a[0];
                          long length = 0;
                          const bool fault = checkBatchFile(c.session, path, length, a.size() == 2);
                          if (c.json) {
                              c.put("fault", fault ? "true" : "false");
                              c.put("length", std::to_string(length));
                          } else {
                              std::cout << (fault ? "fault" : "clean") << ", " << length << " characters\n";
                          }
                          return fault ? kFailed : kOk;
                      }}};

const Register save{{"batch-save", "FILE.spc [NEW.spc]",
                     "read a batch and save it again (under its own name, or as NEW.spc asking before an overwrite)",
                     [](Context& c, const std::vector<std::string>& a) {
                         if (a.empty() || a.size() > 2) return Misuse(Registry().at("batch-save"));
                         if (!Open(c, a[0])) return kFailed;
                         Session& s = c.session;
                         const size_t before = c.messages.shown().size();
                         SaveStep step;
                         if (a.size() == 1) {
                             step = mnuSave_Click(s);
                         } else {
                             step = mnuSaveBatch_Click(s);
                             if (step == SaveStep::AskForName) {
                                 DLG_Save_batch_OK(s, text::FileNameOf(a[1]));
                                 step = SaveStep::Done;
                             }
                         }
                         if (c.json) c.putString("title", s.MainTitle);
                         else std::cout << s.MainTitle << "\n";
                         // Questions answered OK are part of a save; a report or a Cancel means it failed.
                         bool reported = false;
                         for (size_t m = before; m < c.messages.shown().size(); ++m) {
                             const auto& [msg, answer] = c.messages.shown()[m];
                             if ((msg.buttons & 7) == mb::OKOnly || answer == mb::Cancel) reported = true;
                         }
                         return step == SaveStep::Done && !reported ? kOk : kFailed;
                     }}};

// Shows each sample (or one) as the main window does, which reads every geometry of the sample and
// checks that they need one engine generation; prints each geometry's generation and the verdict.
int BatchSyntax(Context& c, const std::vector<std::string>& a) {
    const Command& self = Registry().at("batch-syntax");
    Session& s = c.session;
    std::string file;
    int only = 0;
    for (size_t i = 0; i < a.size(); ++i) {
        if (a[i] == "--sample" && i + 1 < a.size() && text::IsNumeric(a[i + 1]))
            only = int(text::Val(a[++i]));
        else if (a[i] == "--engine-version" && i + 1 < a.size())
            s.VKSversionNumber = text::CInt(text::Val(a[++i]));
        else if (a[i].starts_with("--") || !file.empty())
            return Misuse(self);
        else
            file = a[i];
    }
    if (file.empty()) return Misuse(self);
    s.VKSversion = std::int16_t(s.VKSversionNumber / 1000);
    if (!Open(c, file)) return kFailed;
    const int count = int(s.lists.Combo1.items.size());
    if (only < 0 || only > count) return Misuse(self);
    bool consistent = true;
    std::string samplesJson = "[";
    for (int i = 0; i < count; ++i) {
        if (only && i + 1 != only) continue;
        Combo1_Click(s, i);
        const Sample& sample = s.current();
        consistent = consistent && !sample.SyntaxInconsistent;
        std::string geometries = "[";
        if (!c.json) std::cout << "Sample " << (i + 1) << s.lists.Label14 << "\n";
        for (const Experiment& e : s.Experiments) {
            if (e.GeometryFile.empty()) continue;
            const std::string label = SyntaxLabel(e.Syntax, false);
            if (c.json)
                geometries += std::string(geometries.size() > 1 ? "," : "") + "{\"dataFile\":" + JsonString(e.DataFile) +
                              ",\"geometry\":" + JsonString(e.GeometryFile) + ",\"syntax\":" + std::to_string(e.Syntax) +
                              ",\"label\":" + JsonString(label) + "}";
            else
                std::cout << "  " << e.DataFile << " ==> " << e.GeometryFile << ": " << e.Syntax << " (" << label << ")\n";
        }
        if (c.json)
            samplesJson += std::string(samplesJson.size() > 1 ? "," : "") + "{\"number\":" + std::to_string(i + 1) +
                           ",\"syntax\":" + std::to_string(sample.Syntax) +
                           ",\"inconsistent\":" + (sample.SyntaxInconsistent ? "true" : "false") +
                           ",\"label\":" + JsonString(s.lists.Label14) + ",\"geometries\":" + geometries + "]}";
        else if (sample.SyntaxInconsistent)
            std::cout << "  inconsistent: no one engine generation reads all of these\n";
    }
    if (c.json) c.put("samples", samplesJson + "]");
    return consistent ? kOk : kFailed;
}

const Register syntax{{"batch-syntax", "FILE.spc [--sample N] [--engine-version N]",
                       "the engine generation each geometry of each sample needs, and whether a sample's agree",
                       BatchSyntax}};

const Register names{{"names", "BATCHNAME SAMPLE SPECTRUM [NSAMPLES NSPECTRA]",
                      "the derived names of a sample and spectrum (TwoCharNumber, DerivedName, SPXname)",
                      [](Context& c, const std::vector<std::string>& a) {
                          if (a.size() != 3 && a.size() != 5) return Misuse(Registry().at("names"));
                          for (size_t k = 1; k < a.size(); ++k)
                              if (!text::IsNumeric(a[k])) return Misuse(Registry().at("names"));
                          Session& s = c.session;
                          s.BatchName = a[0];
                          const int sample = int(text::Val(a[1])), spectrum = int(text::Val(a[2]));
                          const int nSamples = a.size() == 5 ? int(text::Val(a[3])) : std::max(sample, 1);
                          const int nSpectra = a.size() == 5 ? int(text::Val(a[4])) : std::max(spectrum, 1);
                          s.NSamples = std::int16_t(nSamples);
                          s.Samples.resize(size_t(std::max(nSamples, 1)) + 2);
                          s.current().NSpectra = std::int16_t(nSpectra);
                          const std::vector<std::pair<std::string, std::string>> rows = {
                              {"TwoCharNumber(sample)", TwoCharNumber(sample)},
                              {"TwoCharNumber(spectrum)", TwoCharNumber(spectrum)},
                              {"DerivedName", DerivedName(s, 0, sample, "")},
                              {"spx", SPXname(s, "spx", sample, spectrum)},
                              {"str", SPXname(s, "str", sample, spectrum)},
                              {"geo", SPXname(s, "geo", sample, spectrum)},
                              {"prf", SPXname(s, "prf", sample, spectrum)},
                          };
                          for (const auto& [k, v] : rows) {
                              if (c.json) c.putString(k, v);
                              else std::cout << k << " = " << v << "\n";
                          }
                          return kOk;
                      }}};

}  // namespace
}  // namespace halvo::cli
