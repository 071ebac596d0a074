// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/pass_records.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include <QRandomGenerator>
#include <QString>
#include <QStringList>

#include "base/files/disk.h"
#include "base/files/file_error.h"
#include "base/files/system_files.h"
#include "wav/pass_record.h"
#include "wav/recorded_file.h"
#include "wav/wav_error.h"
#include "wav/wav_file.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView Ending(".undo");
constexpr QLatin1StringView AsideEnding(".unusable");  // after the other one
constexpr QLatin1StringView WholeAsideEnding(".undo.unusable");

// If in doubt, they are not.
bool AreOfOneFile(const PassFacts& one, const PassFacts& other) {
  const bool haveNumbers = one.stamp.number != 0 && other.stamp.number != 0;
  const bool isSame = haveNumbers ? one.stamp.IsSameFile(other.stamp) : one.path == other.path;
  return isSame && one.fileLength == other.fileLength && one.headHash == other.headHash;
}

FoundRecord Describe(const PassRecord& record) {
  return {.path = record.Path(),
          .facts = record.Facts(),
          .boundary = record.Boundary(),
          .length = record.OnDisk()->Length().value_or(0),
          .isComplete = record.IsComplete()};
}

bool IsNewer(const FoundRecord& one, const FoundRecord& other) {
  return one.facts.created > other.facts.created;
}

}  // namespace

int FoundRecord::Percent() const {
  constexpr qint64 whole = 100;
  const auto done = facts.grid.PositionOf(boundary) - 1;
  return facts.fileLength == 0 ? 0 : static_cast<int>(done * whole / facts.fileLength);
}

PassRecords::PassRecords(QString folder, const Disk& disk)
    : folder_(std::move(folder)), disk_(disk) {}

std::vector<FoundRecord> PassRecords::Find(RecordProblems* problems) const {
  std::vector<FoundRecord> found;
  for (const auto& path : FilesNamed(Ending)) {
    const auto use = LookAt(path, found);
    if (!use) {
      if (problems != nullptr) {
        problems->unreadable.push_back(use.error());
      }
    } else if (*use == Use::None) {
      Remove(path);
    } else if (*use == Use::Unusable && problems != nullptr &&
               disk_.Rename(path, path + AsideEnding)) {
      problems->setAside.append(path + AsideEnding);
    }
  }
  std::sort(found.begin(), found.end(), IsNewer);
  return found;
}

// The record is closed again, because some systems remove no file that is open.
FileResult<PassRecords::Use> PassRecords::LookAt(const QString& path,
                                                 std::vector<FoundRecord>& found) const {
  return PassRecord::Open(disk_, path, RecordUse::Looking).map([&](const auto& record) {
    if (!record) {
      return UseOf(record.error());
    }
    if (record->IsUndone()) {
      return Use::None;
    }
    found.push_back(Describe(*record));
    return Use::Record;
  });
}

PassRecords::Use PassRecords::UseOf(RecordFault fault) {
  switch (fault) {
    case RecordFault::NotBegun:
      return Use::None;
    case RecordFault::InUse:
      return Use::InUse;
    case RecordFault::Damaged:
    case RecordFault::Newer:
      break;
  }
  return Use::Unusable;
}

QStringList PassRecords::FilesNamed(QLatin1StringView ending) const {
  QStringList paths;
  for (const auto& name : disk_.FilesIn(folder_)) {
    if (name.endsWith(ending)) {
      paths.append(folder_ + u'/' + name);
    }
  }
  return paths;
}

std::optional<FoundRecord> PassRecords::FindFor(const QString& recording) const {
  return NewestOf(recording, Find());
}

std::optional<FoundRecord> PassRecords::FindInterrupted() const {
  const auto all = Find();
  const auto found = std::find_if(all.begin(), all.end(), [&](const FoundRecord& record) {
    const auto newest = record.isComplete ? std::nullopt : NewestOf(record.facts.path, all);
    return newest && newest->path == record.path;
  });
  return found == all.end() ? std::nullopt : std::optional(*found);
}

std::optional<FoundRecord> PassRecords::NewestOf(const QString& recording,
                                                 const std::vector<FoundRecord>& all) const {
  const auto found = std::find_if(all.begin(), all.end(), [&](const FoundRecord& record) {
    return IsOf(record.facts, recording);
  });
  return found == all.end() ? std::nullopt : std::optional(*found);
}

FileResult<PassRecord> PassRecords::Create(PassFacts facts) const {
  const auto since1970 = std::chrono::system_clock::now().time_since_epoch();
  facts.created = std::chrono::duration_cast<std::chrono::microseconds>(since1970).count();
  // The newest one is the newest even if the clock has been set back.
  if (const auto others = Find(); !others.empty()) {
    facts.created = std::max(facts.created, others.front().facts.created + 1);
  }
  const auto number = QRandomGenerator::system()->generate64();
  const QString path = folder_ + u"/%1"_s.arg(number, 16, 16, QChar(u'0')) + Ending;
  return disk_.MakeFolder(folder_)
      .and_then([&] { return PassRecord::Create(disk_, path, std::move(facts)); })
      .and_then([&](PassRecord record) {
        return disk_.SyncFolder(folder_)
            .map([&] { return std::move(record); })
            .map_error([&](const FileError& error) {
              Remove(path);
              return error;
            });
      });
}

FileResult<PassRecord> PassRecords::Open(const FoundRecord& found) const {
  return PassRecord::Open(disk_, found.path, RecordUse::Working)
      .and_then([&](auto opened) -> FileResult<PassRecord> {
        if (!opened) {
          const bool isInUse = opened.error() == RecordFault::InUse;
          return tl::unexpected(ErrorOf(found.path, isInUse
                                                        ? u"another program is using the file"_s
                                                        : u"the record of the pass is damaged"_s));
        }
        return std::move(*opened);
      });
}

void PassRecords::Remove(const QString& path) const { static_cast<void>(disk_.Remove(path)); }

void PassRecords::RemoveOlderThan(const PassFacts& newest) const {
  std::size_t records = 0;
  qint64 bytes = 0;
  for (const auto& record : Find()) {
    if (record.facts.created == newest.created) {
      continue;
    }
    if (record.isComplete && record.facts.created < newest.created &&
        AreOfOneFile(record.facts, newest)) {
      Remove(record.path);
      continue;
    }
    ++records;
    bytes += record.length;
    if (record.isComplete && (records >= MostRecords || bytes > MostBytes)) {
      Remove(record.path);
    }
  }
  for (const auto& path : FilesNamed(WholeAsideEnding)) {
    const auto file = disk_.Open(path, OpenFor::Reading);
    ++records;
    bytes += file ? (*file)->Length().value_or(0) : 0;
    if (records >= MostRecords || bytes > MostBytes) {
      Remove(path);
    }
  }
}

void PassRecords::SetAside(const QString& path) const {
  static_cast<void>(disk_.Rename(path, path + AsideEnding));
}

// A pass changes neither length nor head of its recording. Another recording may have taken its
// path, or its number once it was deleted, but hardly both.
bool PassRecords::IsOf(const PassFacts& facts, const QString& recording) const {
  WavFile file(disk_);
  if (!file.OpenForReading(recording)) {
    return false;
  }
  const auto stamp = file.OnDisk()->Stamp();
  const bool hasNumber = stamp && stamp->IsSameFile(facts.stamp);
  const bool hasPath = facts.path == recording || LeadToSameFile(facts.path, recording);
  if (hasNumber && hasPath) {
    return true;
  }
  return (hasNumber || hasPath) &&
         file.Length(WavError::Failed::Reading).value_or(-1) == facts.fileLength &&
         HashOfHead(file, facts.headLength)
             .map([&](quint64 hash) { return hash == facts.headHash; })
             .value_or(false);
}

}  // namespace brindle
