#include <sys/wait.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <string>

#include "random/random.h"
#include "random/session.h"
#include "random/tally.h"

namespace {

using namespace halvern::random_user;
namespace fs = std::filesystem;

constexpr std::uint64_t kEveryItemIsReached = 200000;
constexpr int kMostFindingsShown = 20;

struct Run {
    std::uint64_t events = 0, seed = 1;
    std::uint64_t sessions = 0, eventsOver = 0, userLeft = 0, dataRefused = 0;
    std::map<std::string, std::uint64_t> failures;  ///< by number and command
    std::map<std::string, std::uint64_t> findings;
    fs::path folder;
};

std::string ErrorsOf(const fs::path& folder) {
    std::ifstream file(folder / "stderr");
    std::string text, line;
    for (int i = 0; i < 40 && std::getline(file, line); ++i)
        text += "\n    " + line;
    return text;
}

/// Runs a session in a process of its own. Result: how the process ended.
int StatusOf(const Plan& plan) {
    std::cout << std::flush;
    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("no process for a session");
    if (child == 0) {
        static_cast<void>(std::freopen((plan.folder / "stderr").c_str(), "w", stderr));
        fs::current_path(plan.folder);
        RunSession(plan, SharedTally());
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return status;
}

/// Brings the files of a session back to what they were before the program wrote to them, so that its script comes upon
/// them again: the session runs a second time and leaves a copy of each file that the user brought along.
void RestoreFiles(Plan plan) {
    const auto before = std::make_unique<Tally>(SharedTally());
    plan.copies = plan.folder.string() + "-files";
    fs::remove_all(plan.folder);
    fs::create_directory(plan.folder);
    fs::create_directory(plan.copies);
    static_cast<void>(StatusOf(plan));
    fs::remove_all(plan.folder);
    fs::rename(plan.copies, plan.folder);
    SharedTally() = *before;
}

/// A session has come upon something: what it is, and a script that plays it again.
void TellFinding(Run& run, const std::string& what, const Plan& plan) {
    const std::string key = what.substr(0, what.find('\n'));
    if (++run.findings[key] > 2 || run.findings.size() > kMostFindingsShown) {
        fs::remove_all(plan.folder);
        return;
    }
    const Tally& tally = SharedTally();
    const std::string errors = ErrorsOf(plan.folder);
    RestoreFiles(plan);
    const fs::path script = plan.folder / "events.session";
    std::ofstream(script) << std::string(tally.script, tally.scriptSize);
    std::cout << "FOUND: seed " << run.seed << ", session " << run.sessions << ", event " << tally.events << ", in "
              << tally.command << ":\n    " << what << errors << "\n    played again by: halvern-replay "
              << script.string() << '\n'
              << std::flush;
}

void JudgeSession(Run& run, int status, const Plan& plan) {
    const Tally& tally = SharedTally();
    if (WIFSIGNALED(status) || !WIFEXITED(status) || WEXITSTATUS(status) != 0 || tally.end == End::kRunning) {
        const std::string how =
            WIFSIGNALED(status) ? strsignal(WTERMSIG(status)) : "exit status " + std::to_string(WEXITSTATUS(status));
        return TellFinding(run, "ended by " + how + " in " + tally.command, plan);
    }
    if (tally.end == End::kFinding)
        return TellFinding(run, tally.finding, plan);
    run.eventsOver += tally.end == End::kEventsOver;
    run.userLeft += tally.end == End::kUserLeft;
    run.dataRefused += tally.end == End::kDataRefused;
    if (tally.end == End::kFailed)
        ++run.failures[std::to_string(tally.failure) + " in " + tally.command];
    fs::remove_all(plan.folder);
}

void RunOne(Run& run) {
    Random random(run.seed, run.sessions);
    const auto most =
        std::min<std::uint64_t>(run.events - SharedTally().events, static_cast<std::uint64_t>(random.Between(50, 700)));
    const Plan plan{run.seed, run.sessions, most, run.folder / ("session" + std::to_string(run.sessions)), {}};
    fs::create_directory(plan.folder);
    SharedTally().BeginSession();
    JudgeSession(run, StatusOf(plan), plan);
    ++run.sessions;
}

void TellItems() {
    const auto& names = WhatToReach();
    const Tally& tally = SharedTally();
    std::cout << "\nreached, and how often:\n";
    for (std::size_t i = 0; i < names.size(); ++i)
        std::printf("  %9llu  %s\n", static_cast<unsigned long long>(tally.reached[i]), names[i].c_str());
    std::fflush(stdout);
}

void TellEffects() {
    const auto& effects = GateEffects();
    std::string never;
    std::size_t count = 0;
    for (std::size_t i = 0; i < effects.size(); ++i) {
        if (SharedTally().changed[i] != 0)
            ++count;
        else
            never += "  " + effects[i] + '\n';
    }
    std::cout << count << " of " << effects.size() << " effects of the gates have changed an item";
    std::cout << (never.empty() ? "\n" : "; never did:\n") << never;
}

std::size_t CountReached() {
    std::size_t count = 0;
    for (std::size_t i = 0; i < WhatToReach().size(); ++i)
        count += SharedTally().reached[i] != 0;
    return count;
}

bool TellSummary(const Run& run) {
    const Tally& tally = SharedTally();
    std::uint64_t failed = 0, found = 0;
    for (const auto& [what, count] : run.failures)
        failed += count;
    for (const auto& [what, count] : run.findings)
        found += count;
    std::cout << "seed " << run.seed << ": " << tally.events << " events in " << run.sessions << " sessions, "
              << tally.refused << " of them refused as they had to be; " << tally.checks << " checks of the model\n"
              << "ends: " << run.eventsOver << " events over, " << run.userLeft << " the user left, " << run.dataRefused
              << " no to equal omega squared t, " << failed << " run-time failures that may come, " << found
              << " findings\n";
    for (const auto& [what, count] : run.failures)
        std::cout << "  " << count << " x run-time failure " << what << '\n';
    for (const auto& [what, count] : run.findings)
        std::cout << "  " << count << " x FOUND " << what << '\n';
    const std::size_t reached = CountReached();
    std::cout << reached << " of " << WhatToReach().size() << " items reached\n";
    TellEffects();
    const bool all = reached == WhatToReach().size();
    if (tally.events >= kEveryItemIsReached || all)
        TellItems();
    return found == 0 && (all || tally.events < kEveryItemIsReached);
}

int BadUsage() {
    std::cerr << "usage: random_user EVENTS [SEED]\n";
    return 2;
}

bool IsNumber(const char* text, std::uint64_t& number) {
    const std::string_view digits = text;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc{} && end == digits.data() + digits.size();
}

}  // namespace

int main(int argc, char** argv) {
    Run run;
    if (argc < 2 || argc > 3 || !IsNumber(argv[1], run.events) || (argc == 3 && !IsNumber(argv[2], run.seed)))
        return BadUsage();
    std::string pattern = (fs::temp_directory_path() / "halvern-random-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        std::cerr << "random_user: no folder for the sessions\n";
        return 2;
    }
    run.folder = fs::canonical(pattern);
    while (SharedTally().events < run.events)
        RunOne(run);
    const bool good = TellSummary(run);
    if (run.findings.empty())
        fs::remove_all(run.folder);
    return good ? 0 : 1;
}
