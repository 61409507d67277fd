// SPDX-License-Identifier: GPL-3.0-or-later
// orchard: the engine's command line.
#include "orchard/language/modRead.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace {

constexpr int StatusRight = 0;
constexpr int StatusUnreadable = 2;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

// The whole file. False, with the reason in errno, when it cannot be read.
bool ReadFile(const std::string& name, std::string& bytes)
{
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(name.c_str(), "rb"));
    if (!file)
        return false;
    constexpr std::size_t block = 1 << 16;
    std::size_t size = 0;
    do {
        bytes.resize(bytes.size() + block);
        size = std::fread(bytes.data() + bytes.size() - block, 1, block, file.get());
        bytes.resize(bytes.size() - block + size);
    } while (size == block);
    return !std::ferror(file.get());
}

// Reports all errors of the program; the status.
int Check(const std::string& name)
{
    std::string text;
    if (!ReadFile(name, text)) {
        std::fprintf(stderr, "%s: %s\n", name.c_str(), std::strerror(errno));
        return StatusUnreadable;
    }
    const ob::basic::Program program = ob::basic::ReadProgram(std::move(text), nullptr);
    for (const ob::basic::ReadError& error : program.errors) {
        const ob::basic::LineColumn place = program.lines.PlaceOf(error.offset);
        std::fprintf(stderr, "%s:%u:%u: %s\n", name.c_str(), place.line, place.column, error.Text().c_str());
    }
    return program.errors.empty() ? StatusRight : StatusUnreadable;
}

} // namespace

int main(int argc, char** argv)
{
    // What follows the switches is one file name, whether or not a shell split it.
    std::string name;
    for (int at = 2; at < argc; ++at)
        name += (at == 2 ? "" : " ") + std::string(argv[at]);
    if (argc > 2 && std::string_view(argv[1]) == "--check")
        return Check(name);
    std::fprintf(stderr, "usage: orchard --check FILE\n");
    return StatusUnreadable;
}
