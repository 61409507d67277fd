// SPDX-License-Identifier: GPL-3.0-or-later
// orchard: the engine's command line.
#include "orchard/language/modRead.h"
#include "orchard/library/cTextHost.h"
#include "orchard/library/modConstants.h"
#include "orchard/machine/cGenerator.h"
#include "orchard/machine/cRun.h"
#include "orchard/machine/modLibraryRows.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace {

using namespace ob::basic;

enum Status { Right = 0, Failed = 1, Unreadable = 2, NeedsWindow = 3, Interrupted = 130 };

std::atomic<bool> isInterrupted = false;
std::atomic<cMachine*> runningMachine = nullptr;
static_assert(std::atomic<cMachine*>::is_always_lock_free);

extern "C" void Interrupt(int)
{
    isInterrupted = true;
    if (cMachine* machine = runningMachine)
        machine->Stop();
}

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

// All that is left of a file. False, with the reason in errno, when it cannot be read.
bool ReadAll(std::FILE* file, std::string& bytes)
{
    constexpr std::size_t block = 1 << 16;
    std::size_t size = 0;
    do {
        bytes.resize(bytes.size() + block);
        size = std::fread(bytes.data() + bytes.size() - block, 1, block, file);
        bytes.resize(bytes.size() - block + size);
    } while (size == block);
    return !std::ferror(file);
}

// The name is empty for standard input.
bool ReadSource(const std::string& name, std::string& bytes)
{
    if (name.empty())
        return ReadAll(stdin, bytes);
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(name.c_str(), "rb"));
    return file && ReadAll(file.get(), bytes);
}

std::string ShownName(const std::string& name)
{
    return name.empty() ? "standard input" : name;
}

// Reports all errors of the program; false when it has any or cannot be read.
bool ReadAndReport(const std::string& name, Program& program)
{
    std::string text;
    if (!ReadSource(name, text)) {
        std::fprintf(stderr, "%s: %s\n", ShownName(name).c_str(), std::strerror(errno));
        return false;
    }
    program = ReadProgram(std::move(text), FindConstant);
    for (const ReadError& error : program.errors) {
        const LineColumn place = program.lines.PlaceOf(error.offset);
        std::fprintf(stderr, "%s:%u:%u: %s\n", ShownName(name).c_str(), place.line, place.column, error.Text().c_str());
    }
    return program.errors.empty();
}

int Check(const std::string& name)
{
    Program program;
    return ReadAndReport(name, program) ? Right : Unreadable;
}

int RunCode(const std::string& name, const MachineCode& code)
{
    cTextHost host([] { return isInterrupted.load(); });
    cRun run(host);
    cMachine machine(code, LibraryRows(), &run);
    runningMachine = &machine;
    int status = Right;
    try {
        if (run.Run(machine) == cMachine::Ending::Stopped)
            status = Interrupted;
    } catch (const cRunError& error) {
        run.Finish();
        std::fprintf(stderr, "%s:%u: %s\n", ShownName(name).c_str(), error.line, error.text.c_str());
        status = Failed;
    } catch (const cProgramError& error) {
        std::fprintf(stderr, "%s: %s\n", ShownName(name).c_str(), error.Text().c_str());
        status = Failed;
    } catch (const WindowNeeded& needed) {
        run.Finish();
        std::fprintf(stderr, "%s:%u: %s needs a window\n", ShownName(name).c_str(), machine.CurrentLine(),
                     needed.what.c_str());
        status = NeedsWindow;
    } catch (const ProgramStopped&) {
        run.Finish();
        status = Interrupted;
    }
    runningMachine = nullptr;
    return status;
}

int RunInConsole(const std::string& name)
{
    Program program;
    if (!ReadAndReport(name, program))
        return Unreadable;
    MachineCode code;
    try {
        code = GenerateCode(program);
    } catch (const cTooLarge& error) {
        std::fprintf(stderr, "%s: %s\n", ShownName(name).c_str(), error.what());
        return Unreadable;
    }
    program = {};
    std::signal(SIGINT, Interrupt);
#ifdef SIGPIPE
    // A reader that is gone is an error of the statement that prints.
    std::signal(SIGPIPE, SIG_IGN);
#endif
    return RunCode(name, code);
}

} // namespace

int main(int argc, char** argv)
{
    const std::string_view mode = argc > 1 ? argv[1] : "";
    // What follows the switches is one file name, whether or not a shell split it.
    std::string name;
    for (int at = 2; at < argc; ++at)
        name += (at == 2 ? "" : " ") + std::string(argv[at]);
    if (mode == "--check" && !name.empty())
        return Check(name);
    if (mode == "--console")
        return RunInConsole(name);
    std::fprintf(stderr, "usage: orchard --check FILE\n       orchard --console [FILE]\n");
    return Unreadable;
}
