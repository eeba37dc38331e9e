#pragma once
// The file system as the front end sees it: names in the working directory are found whatever
// their case, dates are the classic day counts, and a user's file is never overwritten without its
// previous contents kept beside it as "<name>~".
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace halvo::platform {

namespace fs = std::filesystem;

// Joins a directory and a name; "\" in either is taken as a separator.
std::string JoinPath(std::string_view dir, std::string_view name);
std::string NormalizeSeparators(std::string_view path);

// The existing entry of `dir` called `name`: an exact match wins, then the first match ignoring
// ASCII case in sorted order. Directory listings are cached until the directory changes.
std::optional<std::string> ResolveCase(const std::string& dir, std::string_view name);
// The same for a full path (only its last component is matched ignoring case).
std::optional<std::string> ResolvePath(std::string_view path);
// Where to write `path`: an existing file whose name differs only in case is rewritten.
std::string ResolveForWrite(std::string_view path);

// Remembers lookups for the length of one routine, for files a batch names many times over (the
// same geometry for hundreds of spectra). Not for keeping across routines: files come and go.
// Existence is answered from one listing of the directory taken at the first question.
struct DirListing;
class LookupMemo {
public:
    double fileDate(const std::string& path);
    bool exists(const std::string& dir, const std::string& name);

private:
    std::unordered_map<std::string, double> dates_;
    std::unordered_map<std::string, std::shared_ptr<const DirListing>> listings_;
};

bool IsDirectory(std::string_view path);
bool IsRegularFile(std::string_view path);

// Last-modified time as days since 1899-12-30 in local time, or 0 for a missing file.
double FileDate(std::string_view path);

std::optional<std::string> ReadFileBytes(std::string_view path);

// Writes `bytes` to `path` through a temporary file renamed into place; an existing file is first
// copied to "<path>~" unless `keepPrevious` is false (for the second write of a save whose first
// write already kept it). Returns false when nothing could be written (the old file is then intact).
bool WriteFileSafely(std::string_view path, std::string_view bytes, bool keepPrevious = true);

}  // namespace halvo::platform
