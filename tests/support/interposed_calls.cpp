// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "tests/support/interposed_calls.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <dlfcn.h>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace brindle {

namespace {

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): the calls are the process's
std::atomic<InterposedCalls*> interposed{nullptr};
std::atomic<ino_t> syncedFile{0};
// System calls made by an answer itself go through.
thread_local bool isAnswering = false;
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

template <typename Call>
Call TheSystems(const char* name) {
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): POSIX's form
  return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name));
}

std::string PathOf(int handle) {
  std::array<char, 4096> path{};
  const auto link = "/proc/self/fd/" + std::to_string(handle);
  const auto length = readlink(link.c_str(), path.data(), path.size());
  return length < 0 ? std::string() : std::string(path.data(), static_cast<std::size_t>(length));
}

// The number of the file behind a descriptor; 0 if there is none.
ino_t FileOf(int handle) {
  using Fstat = int (*)(int, struct stat*);
  struct stat found = {};
  return TheSystems<Fstat>("fstat")(handle, &found) == 0 ? found.st_ino : 0;
}

// Whether the call is to fail; sets its error number then.
bool IsToFail(InterposedCalls::Answer InterposedCalls::*answer, const std::string& path) {
  auto* calls = interposed.load();
  if (calls == nullptr || !(calls->*answer)) {
    return false;
  }
  isAnswering = true;
  const int error = (calls->*answer)(path);
  isAnswering = false;
  errno = error;
  return error != 0;
}

void TellOfRead(const std::string& path) {
  auto* calls = interposed.load();
  if (calls == nullptr || !calls->afterRead) {
    return;
  }
  const int error = errno;
  isAnswering = true;
  calls->afterRead(path);
  isAnswering = false;
  errno = error;
}

bool IsAsked() { return interposed.load() != nullptr && !isAnswering; }

}  // namespace

InterposedCalls::InterposedCalls() { interposed = this; }

InterposedCalls::~InterposedCalls() {
  interposed = nullptr;
  syncedFile = 0;
}

}  // namespace brindle

extern "C" {

int fdatasync(int handle) {
  using namespace brindle;
  if (IsAsked()) {
    if (IsToFail(&InterposedCalls::sync, PathOf(handle))) {
      return -1;
    }
    syncedFile = FileOf(handle);
  }
  return TheSystems<int (*)(int)>("fdatasync")(handle);
}

int close(int handle) {
  using namespace brindle;
  if (IsAsked() && syncedFile != 0 && FileOf(handle) == syncedFile) {
    syncedFile = 0;
    if (IsToFail(&InterposedCalls::closeOfSyncedFile, PathOf(handle))) {
      const int error = errno;
      TheSystems<int (*)(int)>("close")(handle);  // frees the descriptor although the call fails
      errno = error;
      return -1;
    }
  }
  return TheSystems<int (*)(int)>("close")(handle);
}

ssize_t read(int handle, void* bytes, std::size_t size) {
  using namespace brindle;
  const auto length = TheSystems<ssize_t (*)(int, void*, std::size_t)>("read")(handle, bytes, size);
  if (IsAsked()) {
    TellOfRead(PathOf(handle));
  }
  return length;
}

int fstat(int handle, struct stat* found) noexcept {
  using namespace brindle;
  if (IsAsked() && IsToFail(&InterposedCalls::length, PathOf(handle))) {
    return -1;
  }
  return TheSystems<int (*)(int, struct stat*)>("fstat")(handle, found);
}

int rename(const char* from, const char* to) noexcept {
  using namespace brindle;
  if (IsAsked() && IsToFail(&InterposedCalls::rename, from)) {
    return -1;
  }
  return TheSystems<int (*)(const char*, const char*)>("rename")(from, to);
}

}  // extern "C"
