// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/way_back.h"

#include <memory>
#include <optional>
#include <utility>

#include <QDir>
#include <QFileInfo>
#include <QString>
#include <QStringList>

#include "base/files/disk.h"
#include "base/files/file_error.h"
#include "base/time/clock.h"
#include "wav/buffering.h"
#include "wav/gain.h"
#include "wav/normalization.h"
#include "wav/pass_record.h"
#include "wav/pass_records.h"
#include "wav/undo_pass.h"
#include "wav/wav_error.h"

namespace brindle {

using namespace Qt::StringLiterals;

WayBack::WayBack(QString folder, const Disk& disk)
    : disk_(disk), records_(std::move(folder), disk) {}

void WayBack::LookFor(const QString& recording) {
  recording_ = recording;
  found_ = recording.isEmpty() ? std::nullopt : records_.FindFor(recording);
}

QStringList WayBack::SetUnusableAside() const {
  RecordProblems problems;
  static_cast<void>(records_.Find(&problems));
  QStringList messages;
  for (const auto& error : problems.unreadable) {
    messages.append(CannotRead(error));
  }
  for (const auto& path : problems.setAside) {
    messages.append(
        u"The record of a normalization is damaged, or of another version. It cannot be used, and "
        "was set aside as\r\n"_s +
        QDir::toNativeSeparators(path));
  }
  return messages;
}

QString WayBack::Question() const {
  return u"The normalization of %1 was interrupted at %2 %.\r\n\r\nFinish: normalizes the rest.\r\n"
         "Undo: makes the recording what it was.\r\nLater: leaves it as it is."_s.arg(
             QFileInfo(recording_).fileName(), QString::number(found_->Percent()));
}

FileResult<void> WayBack::Keep(Normalization& pass, double gain, Buffering buffering,
                               const KnownLevels& levels) const {
  auto facts = pass.FactsFor(gain, buffering, levels);
  if (!facts) {
    return tl::unexpected(facts.error().error);
  }
  if (facts->grid.Count() == 0) {
    return {};
  }
  return records_.Create(std::move(*facts)).and_then([&](PassRecord record) {
    const auto path = record.Path();
    return pass.KeepRecord(std::move(record)).map_error([&](const WavError& error) {
      records_.Remove(path);
      return error.error;
    });
  });
}

FileResult<std::unique_ptr<UndoPass>> WayBack::Undo(const Clock& clock) const {
  return records_.Open(*found_).map([&](PassRecord record) {
    return std::make_unique<UndoPass>(recording_, std::move(record), clock, disk_);
  });
}

WavResult<std::unique_ptr<Normalization>> WayBack::Finish(const Clock& clock) const {
  auto pass =
      std::make_unique<Normalization>(PassFiles{.source = recording_, .isInPlace = true}, disk_);
  return pass->Open()
      .and_then([&](Normalization::Opened) {
        return records_.Open(*found_).map_error(FailedAt(WavError::Failed::Reading));
      })
      .and_then([&](PassRecord record) { return pass->KeepRecord(std::move(record)); })
      .map_error([&](const WavError& error) {
        SetAside(pass->ChangedRecord());
        return error;
      })
      .map([&] {
        pass->Start(GainTable(found_->facts.gain), found_->facts.buffering, clock);
        return std::move(pass);
      });
}

void WayBack::Forget() { records_.Remove(found_->path); }

void WayBack::SetAside(const QString& record) const {
  if (!record.isEmpty()) {
    records_.SetAside(record);
  }
}

void WayBack::Complete(const QString& recording) {
  LookFor(recording);
  if (found_ && found_->isComplete) {
    records_.RemoveOlderThan(found_->facts);
  }
}

}  // namespace brindle
