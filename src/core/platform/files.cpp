#include "platform/files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <map>
#include <system_error>
#include <unordered_map>
#include <vector>

#include "text/tokens.h"

namespace halvo::platform {
namespace {

}  // namespace

struct DirListing {
    timespec mtime{};
    std::unordered_map<std::string, std::string> folded;  // lower-case name -> first name in sorted order
};

namespace {

// One cache for the process: it only spares repeated directory scans and never changes an answer,
// since a listing is dropped as soon as its directory's time stamp moves.
std::map<std::string, std::shared_ptr<const DirListing>>& Cache() {
    static std::map<std::string, std::shared_ptr<const DirListing>> cache;
    return cache;
}

std::shared_ptr<const DirListing> ListingOf(const std::string& dir) {
    struct stat st{};
    const std::string d = dir.empty() ? "." : dir;
    if (::stat(d.c_str(), &st) != 0 || !S_ISDIR(st.st_mode)) return nullptr;
    auto& cache = Cache();
    auto it = cache.find(d);
    if (it != cache.end() && it->second->mtime.tv_sec == st.st_mtim.tv_sec &&
        it->second->mtime.tv_nsec == st.st_mtim.tv_nsec)
        return it->second;
    auto listing = std::make_shared<DirListing>();
    listing->mtime = st.st_mtim;
    std::vector<std::string> names;
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(d, ec)) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    for (auto& n : names) listing->folded.emplace(text::Lower(n), n);  // emplace keeps the first
    return cache[d] = std::move(listing);
}

}  // namespace

std::string NormalizeSeparators(std::string_view path) {
    std::string out(path);
    std::replace(out.begin(), out.end(), '\\', '/');
    return out;
}

std::string JoinPath(std::string_view dir, std::string_view name) {
    if (dir.empty() || (!name.empty() && (name.front() == '/' || name.front() == '\\'))) return NormalizeSeparators(name);
    std::string out;
    out.reserve(dir.size() + name.size() + 1);
    out.append(dir);
    if (out.back() != '/' && out.back() != '\\') out += '/';
    out.append(name);
    std::replace(out.begin(), out.end(), '\\', '/');
    return out;
}

namespace {

// Finds `name` in `dir` as ResolveCase does and fills `st` for the file found: one stat for a name
// spelled as on disk, a cached listing for the others.
std::optional<std::string> Find(const std::string& dir, std::string_view name, struct stat& st) {
    if (name.empty()) return std::nullopt;
    std::string exact = JoinPath(dir, name);
    if (::stat(exact.c_str(), &st) == 0) return exact;
    const auto listing = ListingOf(NormalizeSeparators(dir));
    if (!listing) return std::nullopt;
    const auto it = listing->folded.find(text::Lower(name));
    if (it == listing->folded.end()) return std::nullopt;
    std::string found = JoinPath(dir, it->second);
    if (::stat(found.c_str(), &st) != 0) return std::nullopt;
    return found;
}

std::optional<std::string> FindPath(std::string_view path, struct stat& st) {
    std::string p(path);
    std::replace(p.begin(), p.end(), '\\', '/');
    if (!p.empty() && ::stat(p.c_str(), &st) == 0) return p;  // spelled as on disk: the usual case
    const auto slash = p.find_last_of('/');
    if (slash == std::string::npos) return Find("", p, st);
    return Find(slash == 0 ? "/" : p.substr(0, slash), std::string_view(p).substr(slash + 1), st);
}

}  // namespace

std::optional<std::string> ResolveCase(const std::string& dir, std::string_view name) {
    struct stat st{};
    return Find(dir, name, st);
}

std::optional<std::string> ResolvePath(std::string_view path) {
    struct stat st{};
    return FindPath(path, st);
}

std::string ResolveForWrite(std::string_view path) {
    if (auto found = ResolvePath(path)) return *found;
    return NormalizeSeparators(path);
}

double LookupMemo::fileDate(const std::string& path) {
    auto [it, fresh] = dates_.try_emplace(path, 0.0);
    if (fresh) it->second = FileDate(path);
    return it->second;
}

bool LookupMemo::exists(const std::string& dir, const std::string& name) {
    auto [it, fresh] = listings_.try_emplace(dir);
    if (fresh) it->second = ListingOf(NormalizeSeparators(dir));
    return it->second && it->second->folded.count(text::Lower(name)) > 0;
}

bool IsDirectory(std::string_view path) {
    struct stat st{};
    return ::stat(NormalizeSeparators(path).c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

bool IsRegularFile(std::string_view path) {
    struct stat st{};
    return ::stat(NormalizeSeparators(path).c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

double FileDate(std::string_view path) {
    struct stat st{};
    if (!FindPath(path, st)) return 0.0;
    std::tm local{};
    const time_t secs = st.st_mtim.tv_sec;
    localtime_r(&secs, &local);
    const double localSeconds = double(secs) + double(local.tm_gmtoff) + double(st.st_mtim.tv_nsec) * 1e-9;
    return localSeconds / 86400.0 + 25569.0;  // 1970-01-01 is day 25569 of the classic count
}

std::optional<std::string> ReadFileBytes(std::string_view path) {
    std::ifstream in(NormalizeSeparators(path), std::ios::binary);
    if (!in) return std::nullopt;
    // Read in blocks: a character-by-character copy costs more than the parsing of most files.
    std::string bytes;
    char block[65536];
    while (in.read(block, sizeof block) || in.gcount() > 0) bytes.append(block, size_t(in.gcount()));
    if (in.bad()) return std::nullopt;
    return bytes;
}

bool WriteFileSafely(std::string_view path, std::string_view bytes, bool keepPrevious) {
    const std::string target = ResolveForWrite(path);
    const std::string temp = target + ".halvo-tmp";
    {
        std::ofstream out(temp, std::ios::binary | std::ios::trunc);
        if (!out) return false;
        out.write(bytes.data(), std::streamsize(bytes.size()));
        out.flush();
        if (!out) {
            out.close();
            std::remove(temp.c_str());
            return false;
        }
    }
    std::error_code ec;
    if (keepPrevious && fs::is_regular_file(target, ec)) {
        // The old contents stay under "<name>~": a hard link costs nothing and survives the rename below;
        // where links are not to be had, a copy.
        const std::string backup = target + "~";
        std::remove(backup.c_str());
        if (::link(target.c_str(), backup.c_str()) != 0) {
            fs::copy_file(target, backup, fs::copy_options::overwrite_existing, ec);
            if (ec) {
                std::remove(temp.c_str());
                return false;
            }
        }
    }
    if (std::rename(temp.c_str(), target.c_str()) != 0) {
        std::remove(temp.c_str());
        return false;
    }
    return true;
}

}  // namespace halvo::platform
