// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace brindle {

/// What a check in a child process found wrong; empty if all is well.
class Findings {
 public:
  void Expect(bool holds, std::string_view otherwise) {
    if (!holds) {
      text_.append(otherwise).append("\n");
    }
  }
  void ExpectEqual(const std::string& actual, const std::string& expected, std::string_view of) {
    if (actual != expected) {
      text_.append(of).append(": \"" + actual + "\", not \"" + expected + "\"\n");
    }
  }
  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

/// Runs `check` in a child process, whose limits and user it may change for good, and returns what
/// it returns.
inline std::string InChild(const std::function<std::string()>& check) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) {
    return std::string("no pipe: ") + std::strerror(errno);
  }
  const pid_t child = fork();
  if (child < 0) {
    return std::string("no child: ") + std::strerror(errno);
  }
  if (child == 0) {
    close(ends[0]);
    const auto report = check();
    const auto written = write(ends[1], report.data(), report.size());
    _exit(written == static_cast<ssize_t>(report.size()) ? 0 : 1);
  }
  close(ends[1]);
  std::string report;
  std::array<char, 4096> piece{};
  for (auto length = read(ends[0], piece.data(), piece.size()); length > 0;
       length = read(ends[0], piece.data(), piece.size())) {
    report.append(piece.data(), static_cast<std::size_t>(length));
  }
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    report += "the child ended with status " + std::to_string(status);
  }
  return report;
}

/// In a child process: the disk fills up after this many bytes of any one file.
inline void FillDisk(rlim_t bytes) {
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{bytes, bytes};
  if (setrlimit(RLIMIT_FSIZE, &limit) != 0) {
    _exit(2);
  }
}

}  // namespace brindle
