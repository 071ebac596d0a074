// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "tests/wav/memory_disk.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <QString>
#include <QStringList>

#include "base/files/disk.h"
#include "base/files/file_error.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

void WriteInto(std::string& bytes, std::size_t offset, const std::string& piece) {
  if (bytes.size() < offset + piece.size()) {
    bytes.resize(offset + piece.size(), '\0');
  }
  bytes.replace(offset, piece.size(), piece);
}

void Apply(std::string& bytes, const MemoryDisk::Logged& logged) {
  if (logged.call == MemoryDisk::Call::SetLength) {
    bytes.resize(logged.offset, '\0');
  } else {
    WriteInto(bytes, logged.offset, logged.bytes);
  }
}

}  // namespace

struct MemoryDisk::State {
  std::mutex mutex;
  // Shared with the files that are open: a removed file lives on in them.
  std::map<std::string, std::shared_ptr<std::string>> files;
  static constexpr int Writer = -1;
  std::map<const std::string*, int> locked;  // how many read each file, or Writer
  std::vector<Logged> log;
  Fails fails;

  // Whether the call may go on; it is in the log then.
  [[nodiscard]] bool Take(Logged logged) {
    if (fails && fails(logged.call, logged.path)) {
      return false;
    }
    if (logged.call != Call::Open && logged.call != Call::Read) {
      log.push_back(std::move(logged));
    }
    return true;
  }
};

class MemoryDisk::File : public DiskFile {
 public:
  File(std::shared_ptr<State> state, const QString& path, std::shared_ptr<std::string> bytes)
      : state_(std::move(state)), path_(path), bytes_(std::move(bytes)) {}
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  File(File&&) = delete;
  File& operator=(File&&) = delete;
  ~File() override { Unlock(); }

  [[nodiscard]] FileResult<std::size_t> Read(qint64 offset, std::span<std::byte> bytes) override {
    const std::lock_guard lock(state_->mutex);
    if (!state_->Take({.call = Call::Read, .path = Name()})) {
      return Refused();
    }
    const auto from = std::min(static_cast<std::size_t>(offset), bytes_->size());
    const auto there = std::min(bytes.size(), bytes_->size() - from);
    std::copy_n(std::as_bytes(std::span(*bytes_)).begin() + static_cast<std::ptrdiff_t>(from),
                there, bytes.begin());
    return there;
  }
  [[nodiscard]] FileResult<void> Write(qint64 offset, std::span<const std::byte> bytes) override {
    std::string copy(bytes.size(), '\0');
    std::copy(bytes.begin(), bytes.end(), std::as_writable_bytes(std::span(copy)).begin());
    return Change({.call = Call::Write,
                   .path = Name(),
                   .offset = static_cast<std::size_t>(offset),
                   .bytes = std::move(copy)});
  }
  [[nodiscard]] FileResult<void> WriteDirect(qint64 offset,
                                             std::span<const std::byte> bytes) override {
    return Write(offset, bytes);
  }
  [[nodiscard]] FileResult<qint64> Length() const override {
    const std::lock_guard lock(state_->mutex);
    return static_cast<qint64>(bytes_->size());
  }
  [[nodiscard]] FileResult<void> SetLength(qint64 length) override {
    return Change(
        {.call = Call::SetLength, .path = Name(), .offset = static_cast<std::size_t>(length)});
  }
  [[nodiscard]] FileResult<void> Sync() const override {
    const std::lock_guard lock(state_->mutex);
    if (!state_->Take({.call = Call::Sync, .path = Name()})) {
      return Refused();
    }
    return {};
  }
  [[nodiscard]] FileResult<void> CheckAtItsPath() const override { return {}; }
  [[nodiscard]] FileResult<FileStamp> Stamp() const override {
    const std::lock_guard lock(state_->mutex);
    // Nobody knows when a file was changed last, so that every piece is checked.
    return FileStamp{.volume = 1, .number = std::hash<std::string>()(Name())};
  }
  [[nodiscard]] FileResult<void> Lock(bool isToBeWritten) override {
    const std::lock_guard lock(state_->mutex);
    auto& holders = state_->locked[bytes_.get()];
    if (holders == State::Writer || (isToBeWritten && holders > 0)) {
      return tl::unexpected(ErrorOf(path_, u"another program is using the file"_s));
    }
    holders = isToBeWritten ? State::Writer : holders + 1;
    isLocked_ = true;
    return {};
  }
  void Unlock() override {
    const std::lock_guard lock(state_->mutex);
    if (std::exchange(isLocked_, false)) {
      auto& holders = state_->locked[bytes_.get()];
      holders = holders == State::Writer ? 0 : holders - 1;
    }
  }

 private:
  [[nodiscard]] std::string Name() const { return path_.toStdString(); }
  [[nodiscard]] tl::unexpected<FileError> Refused() const {
    return tl::unexpected(ErrorOf(path_, u"the disk refuses"_s));
  }
  [[nodiscard]] FileResult<void> Change(Logged logged) {
    const std::lock_guard lock(state_->mutex);
    const auto copy = logged;
    if (!state_->Take(std::move(logged))) {
      return Refused();
    }
    Apply(*bytes_, copy);
    return {};
  }

  std::shared_ptr<State> state_;
  QString path_;
  std::shared_ptr<std::string> bytes_;
  bool isLocked_ = false;
};

MemoryDisk::MemoryDisk(DiskImage files) : state_(std::make_shared<State>()) {
  for (auto& [path, bytes] : files) {
    state_->files[path] = std::make_shared<std::string>(std::move(bytes));
  }
}

FileResult<std::unique_ptr<DiskFile>> MemoryDisk::Open(const QString& path, OpenFor use) const {
  const std::lock_guard lock(state_->mutex);
  const auto refuse = [&](const QString& reason) { return tl::unexpected(ErrorOf(path, reason)); };
  const auto name = path.toStdString();
  const bool isThere = state_->files.contains(name);
  const bool creates =
      use == OpenFor::CreatingOnly || (use == OpenFor::ChangingOrCreate && !isThere);
  if (isThere && use == OpenFor::CreatingOnly) {
    return refuse(u"there is a file"_s);
  }
  if (!isThere && !creates) {
    return refuse(u"no such file"_s);
  }
  if (!state_->Take({.call = creates ? Call::Create : Call::Open, .path = name})) {
    return refuse(u"the disk refuses"_s);
  }
  if (creates) {
    state_->files[name] = std::make_shared<std::string>();
  }
  return std::make_unique<File>(state_, path, state_->files[name]);
}

FileResult<void> MemoryDisk::Remove(const QString& path) const {
  const std::lock_guard lock(state_->mutex);
  const auto name = path.toStdString();
  if (!state_->files.contains(name) || !state_->Take({.call = Call::Remove, .path = name})) {
    return tl::unexpected(ErrorOf(path, u"the disk refuses"_s));
  }
  state_->files.erase(name);
  return {};
}

FileResult<void> MemoryDisk::Rename(const QString& from, const QString& to) const {
  const std::lock_guard lock(state_->mutex);
  const auto name = from.toStdString();
  if (!state_->files.contains(name) ||
      !state_->Take({.call = Call::Rename, .path = name, .bytes = to.toStdString()})) {
    return tl::unexpected(ErrorOf(from, u"the disk refuses"_s));
  }
  state_->files[to.toStdString()] = state_->files[name];
  state_->files.erase(name);
  return {};
}

FileResult<void> MemoryDisk::MakeFolder(const QString&) const { return {}; }

FileResult<void> MemoryDisk::SyncFolder(const QString& path) const {
  const std::lock_guard lock(state_->mutex);
  if (!state_->Take({.call = Call::SyncFolder, .path = path.toStdString()})) {
    return tl::unexpected(ErrorOf(path, u"the disk refuses"_s));
  }
  return {};
}

QStringList MemoryDisk::FilesIn(const QString& folder) const {
  const std::lock_guard lock(state_->mutex);
  QStringList names;
  for (const auto& [path, bytes] : state_->files) {
    const auto whole = QString::fromStdString(path);
    if (whole.startsWith(folder + u'/')) {
      names.append(whole.mid(folder.size() + 1));
    }
  }
  return names;
}

std::optional<qint64> MemoryDisk::FreeBytes(const QString&) const { return std::nullopt; }

std::optional<std::string> MemoryDisk::Bytes(const std::string& path) const {
  const std::lock_guard lock(state_->mutex);
  const auto found = state_->files.find(path);
  return found == state_->files.end() ? std::nullopt : std::optional(*found->second);
}

DiskImage MemoryDisk::Files() const {
  const std::lock_guard lock(state_->mutex);
  DiskImage files;
  for (const auto& [path, bytes] : state_->files) {
    files[path] = *bytes;
  }
  return files;
}

void MemoryDisk::Put(const std::string& path, const std::string& bytes) {
  const std::lock_guard lock(state_->mutex);
  state_->files[path] = std::make_shared<std::string>(bytes);
}

std::vector<MemoryDisk::Logged> MemoryDisk::Log() const {
  const std::lock_guard lock(state_->mutex);
  return state_->log;
}

void MemoryDisk::SetFailure(Fails fails) {
  const std::lock_guard lock(state_->mutex);
  state_->fails = std::move(fails);
}

namespace {

// A part of a write: all of it, nothing, its beginning, or sectors and pieces of sectors.
void ApplyTorn(std::string& bytes, const MemoryDisk::Logged& logged, std::mt19937& random) {
  constexpr std::size_t sector = 512;
  const auto length = logged.bytes.size();
  const auto some = [&](std::size_t most) {
    return std::uniform_int_distribution<std::size_t>(0, most)(random);
  };
  const auto part = [&](std::size_t from, std::size_t to) {
    WriteInto(bytes, logged.offset + from, logged.bytes.substr(from, to - from));
  };
  switch (some(4)) {
    case 0:
      return;
    case 1:
      part(0, length);
      return;
    case 2:
      part(0, some(length));
      return;
    case 3:
      part(some(length), length);
      return;
    default:
      break;
  }
  for (std::size_t from = 0; from < length; from += sector) {
    const auto to = std::min(length, from + sector);
    const auto fate = some(3);
    if (fate == 0) {
      part(from, to);
    } else if (fate == 1) {
      part(from, from + some(to - from));
    }
  }
}

}  // namespace

DiskImage AfterCrash(const DiskImage& before, const std::vector<MemoryDisk::Logged>& log,
                     std::size_t calls, std::mt19937& random) {
  using Call = MemoryDisk::Call;
  const auto coin = [&] { return std::uniform_int_distribution<int>(0, 1)(random) == 1; };
  // What the disk has for certain, and what waits for it; files that are new may not be there.
  DiskImage safe = before;
  std::map<std::string, std::vector<const MemoryDisk::Logged*>> waiting;
  std::set<std::string> uncertain;
  for (std::size_t i = 0; i < calls; ++i) {
    const auto& logged = log[i];
    switch (logged.call) {
      case Call::Create:
        safe[logged.path] = {};
        uncertain.insert(logged.path);
        break;
      case Call::Write:
      case Call::SetLength:
        waiting[logged.path].push_back(&logged);
        break;
      case Call::Sync:
        for (const auto* change : waiting[logged.path]) {
          Apply(safe[logged.path], *change);
        }
        waiting[logged.path].clear();
        break;
      case Call::SyncFolder:
        uncertain.clear();
        break;
      case Call::Remove:
        if (coin()) {
          safe.erase(logged.path);
        }
        break;
      case Call::Rename:
        safe[logged.bytes] = safe[logged.path];
        safe.erase(logged.path);
        break;
      case Call::Open:
      case Call::Read:
        break;
    }
  }
  for (auto& [path, changes] : waiting) {
    if (!safe.contains(path)) {
      continue;
    }
    std::shuffle(changes.begin(), changes.end(), random);
    for (const auto* change : changes) {
      if (change->call == Call::SetLength) {
        if (coin()) {
          Apply(safe[path], *change);
        }
      } else {
        ApplyTorn(safe[path], *change, random);
      }
    }
  }
  for (const auto& path : uncertain) {
    if (coin()) {
      safe.erase(path);
    }
  }
  return safe;
}

}  // namespace brindle
