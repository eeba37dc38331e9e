#include "test_support.h"

#include <fstream>
#include <random>
#include <stdexcept>

#include "platform/files.h"

namespace halvo::test {

ScratchDir::ScratchDir() {
    std::random_device rd;
    const auto base = std::filesystem::temp_directory_path();
    for (int attempt = 0; attempt < 100; ++attempt) {
        auto candidate = base / ("halvo-test-" + std::to_string(rd()));
        if (std::filesystem::create_directory(candidate)) {
            path_ = candidate.string();
            return;
        }
    }
    throw std::runtime_error("cannot make a scratch directory");
}

ScratchDir::~ScratchDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

void ScratchDir::write(const std::string& name, const std::string& bytes) const {
    std::ofstream out(file(name), std::ios::binary | std::ios::trunc);
    out << bytes;
}

std::string ScratchDir::read(const std::string& name) const {
    return platform::ReadFileBytes(file(name)).value_or("<missing>");
}

bool ScratchDir::exists(const std::string& name) const { return std::filesystem::exists(file(name)); }

std::string DataDir() { return HALVO_TEST_DATA; }

std::string ReadData(const std::string& relative) {
    auto bytes = platform::ReadFileBytes(DataDir() + "/" + relative);
    if (!bytes) throw std::runtime_error("missing test data " + relative);
    return *bytes;
}

TestSession::TestSession(const std::string& dir) {
    session.ui = &answers;
    session.FilePath = dir;
    SetWarningsFlag(session, true);
}

}  // namespace halvo::test
