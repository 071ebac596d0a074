// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "media/libav/part_files.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>

#include <QFileInfo>
#include <QString>
#include <QStringList>

#include "base/files/at_path.h"
#include "base/files/system_disk.h"

namespace brindle {
namespace {

constexpr std::size_t BufferLength = 1'048'576;

QString UnfinishedName(const QString& target) { return target + QStringLiteral(".unfinished"); }

}  // namespace

PartFile::PartFile(std::unique_ptr<DiskFile> file) : file_(std::move(file)) {
  buffer_.reserve(BufferLength);
}

void PartFile::Write(std::span<const std::byte> bytes) {
  if (buffer_.size() + bytes.size() > BufferLength) {
    Flush();
  }
  if (bytes.size() >= BufferLength) {
    if (state_) {
      state_ = file_->Write(start_, bytes);
    }
    start_ += static_cast<std::int64_t>(bytes.size());
    length_ = std::max(length_, start_);
    return;
  }
  buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
}

void PartFile::Seek(std::int64_t position) {
  if (position != Position()) {
    Flush();
    start_ = position;
  }
}

void PartFile::Flush() {
  if (state_ && !buffer_.empty()) {
    state_ = file_->Write(start_, buffer_);
  }
  start_ += static_cast<std::int64_t>(buffer_.size());
  length_ = std::max(length_, start_);
  buffer_.clear();
}

FileResult<void> PartFile::Finish() {
  Flush();
  if (state_) {
    state_ = file_->Sync();
  }
  return state_;
}

PartFiles::PartFiles(QStringList targets, bool isReplacing)
    : targets_(std::move(targets)), isReplacing_(isReplacing) {}

PartFiles::~PartFiles() {
  for (auto i = completed_; i < created_; ++i) {
    // It is not there if it could not be opened.
    static_cast<void>(TheSystemsDisk().Remove(UnfinishedName(targets_[i])));
  }
}

FileResult<void> PartFiles::CheckTarget(const QString& target) const {
  const QFileInfo info(target);
  if (!info.exists() && !info.isSymLink()) {
    return {};
  }
  const auto isFile = IsFileAt(target);
  if (!isFile) {
    return tl::unexpected(isFile.error());
  }
  if (!isReplacing_) {
    return tl::unexpected(ErrorOf(target, QStringLiteral("it exists already")));
  }
  return {};
}

FileResult<std::unique_ptr<PartFile>> PartFiles::Next() {
  const auto& target = targets_[created_];
  const auto check = CheckTarget(target);
  if (!check) {
    return tl::unexpected(check.error());
  }
  // One that an ended program has left is taken; one that another program writes is not.
  auto file = TheSystemsDisk().Open(UnfinishedName(target), OpenFor::ChangingOrCreate);
  if (!file) {
    return tl::unexpected(file.error());
  }
  const auto isReady = (*file)->Lock(true).and_then([&] { return (*file)->SetLength(0); });
  if (!isReady) {
    return tl::unexpected(isReady.error());
  }
  ++created_;
  return std::make_unique<PartFile>(std::move(*file));
}

FileResult<void> PartFiles::Complete() {
  for (; completed_ < created_; ++completed_) {
    const auto& target = targets_[completed_];
    auto done = CheckTarget(target).and_then(
        [&] { return TheSystemsDisk().Rename(UnfinishedName(target), target); });
    if (!done) {
      return done;
    }
  }
  return TheSystemsDisk().SyncFolder(QFileInfo(targets_.front()).absolutePath());
}

}  // namespace brindle
