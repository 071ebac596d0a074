// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// From exec to the first paint of the main window: Brindle compared with a program with one bare
// window. Both are in this program's own folder.

#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

namespace brindle {
namespace {

struct Run {
  bool succeeded = false;
  double wallSeconds = 0;
  double processorSeconds = 0;
};

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

Run RunToItsEnd(std::string program) {
  const auto began = std::chrono::steady_clock::now();
  const std::array<char*, 2> arguments{program.data(), nullptr};
  pid_t child = 0;
  if (posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments.data(), environ) != 0) {
    return {};
  }
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child) {
    return {};
  }
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - began;
  return {.succeeded = status == 0,
          .wallSeconds = wall.count(),
          .processorSeconds = Seconds(usage.ru_utime) + Seconds(usage.ru_stime)};
}

void Start(benchmark::State& state, const std::string& program) {
  double processorSeconds = 0;
  while (state.KeepRunning()) {
    const Run run = RunToItsEnd(program);
    if (!run.succeeded) {
      state.SkipWithError("the program did not end well");
    }
    state.SetIterationTime(run.wallSeconds);
    processorSeconds += run.processorSeconds;
  }
  // What this process itself uses in the meantime means nothing; the child's time is a separate
  // figure.
  state.counters["processor_ms"] = processorSeconds * 1000;
}

}  // namespace
}  // namespace brindle

int main(int argc, char** argv) {
  const auto folder = std::filesystem::canonical("/proc/self/exe").parent_path();
  for (const auto* name : {"start_brindle", "start_bare"}) {
    const std::string program = folder / name;
    // Both are in the file cache, and there is a settings file, before the first run that counts.
    if (!brindle::RunToItsEnd(program).succeeded) {
      return EXIT_FAILURE;
    }
    benchmark::RegisterBenchmark(
        name, [program](benchmark::State& state) { brindle::Start(state, program); })
        ->Iterations(1)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
  }
  if (!std::filesystem::exists(folder / "Brindle2.ini")) {
    return EXIT_FAILURE;
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return EXIT_SUCCESS;
}
