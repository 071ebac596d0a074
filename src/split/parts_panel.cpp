// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "split/parts_panel.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>

#include <QDir>
#include <QFileInfo>
#include <QString>
#include <QStringList>

#include "base/input/layout.h"
#include "base/windows/film_text.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

QString Writes() { return u"Write Parts..."_s; }

QString MegaBytes(std::int64_t bytes) { return MegaBytesText(bytes) + u" MB"_s; }

QString SizesText(const FilmSplit& split) {
  if (split.bytes.empty()) {
    return u"No key frame lies within a segment of this size"_s;
  }
  QStringList sizes;
  for (const auto bytes : split.bytes) {
    sizes.append(MegaBytes(bytes));
  }
  return split.bytes.size() == 1 ? u"The film fits into one segment: "_s + sizes.front()
                                 : u"Segments: "_s + sizes.join(u", "_s);
}

QString BytesText(const FilmSplit& split) {
  QStringList lines;
  for (std::size_t i = 0; i < split.bytes.size(); ++i) {
    lines.append(u"Segment %1: %2 bytes"_s.arg(i + 1).arg(split.bytes[i]));
  }
  return lines.join(u'\n');
}

// What the parts are called in their folder.
QStringList NamesOf(const QString& film, const QString& container, std::size_t parts) {
  const QFileInfo file(film);
  const auto suffix = container == u"matroska" ? u"mkv"_s : container;
  QStringList names;
  for (std::size_t i = 1; i <= parts; ++i) {
    names.append(u"%1.part%2.%3"_s.arg(file.completeBaseName()).arg(i).arg(suffix));
  }
  return names;
}

QString PartText(const WrittenPart& part) {
  return u"%1: %2, %3"_s.arg(NameOfFile(part.path), MegaBytes(part.bytes),
                             DurationText(part.seconds));
}

}  // namespace

PartsPanel::PartsPanel(Form& window, Services& services)
    : window_(window),
      services_(services),
      PartSizes(u"PartSizes"_s, {}),
      WriteParts(u"WriteParts"_s, Writes(), u"Write the segments of the film into a folder"_s) {
  PartSizes.setAccessibleName(u"Segment sizes"_s);
  WriteParts.setEnabled(false);
  connect(&WriteParts, &PushButton::clicked, this, &PartsPanel::WriteParts_Click);
}

QLayout* PartsPanel::Line() {
  auto* line = Across({}, Spacing);
  line->addWidget(&PartSizes, 1);
  line->addWidget(&WriteParts);
  return line;
}

void PartsPanel::Show(const QString& path, const Film& film, const FilmSplit& split) {
  shown_ = {path, QString::fromStdString(film.parts.container), split};
  text_ = SizesText(split);
  details_ = BytesText(split);
  ShowIdle();
}

void PartsPanel::Clear() {
  shown_.reset();
  text_.clear();
  details_.clear();
  ShowIdle();
}

void PartsPanel::ShowIdle() {
  if (writing_ != nullptr) {
    return;
  }
  ShowCaption(Writes());
  PartSizes.Write(text_);
  PartSizes.setToolTip(details_);
  WriteParts.setEnabled(shown_ && shown_->split.bytes.size() > 1 && !shown_->container.isEmpty());
}

// The button keeps its width, so that nothing moves.
void PartsPanel::ShowCaption(const QString& caption) {
  WriteParts.setMinimumWidth(caption == Writes() ? 0 : WriteParts.width());
  WriteParts.setText(caption);
  WriteParts.setAccessibleName(caption);
}

void PartsPanel::WriteParts_Click() {
  if (writing_ != nullptr) {
    Stop();
    return;
  }
  const auto shown = *shown_;
  services_.dialogs.AskForFolder(
      &window_,
      {.name = u"PartsDialog"_s,
       .title = u"Folder for the Segments"_s,
       .start = QFileInfo(shown.path).path()},
      [this, shown](const QString& folder) {
        AskToOverwrite(shown.container,
                       {.film = shown.path, .cuts = shown.split.cuts, .folder = folder});
      });
}

void PartsPanel::AskToOverwrite(const QString& container, const PartOrder& order) {
  const QDir folder(order.folder);
  QStringList there;
  for (const auto& name : NamesOf(order.film, container, order.cuts.size() + 1)) {
    if (QFileInfo::exists(folder.filePath(name))) {
      there.append(NameOfFile(name));
    }
  }
  if (there.isEmpty()) {
    Write(order);
    return;
  }
  const auto text = there.size() == 1
                        ? u"%1 exists already. Overwrite it?"_s.arg(there.front())
                        : u"These exist already: %1. Overwrite them?"_s.arg(there.join(u", "_s));
  services_.boxes.Ask(&window_, text, BoxButtons::YesNoDefaultNo, [this, order](BoxAnswer answer) {
    if (answer == BoxAnswer::Yes) {
      auto overwriting = order;
      overwriting.overwrites = true;
      Write(overwriting);
    }
  });
}

void PartsPanel::Write(const PartOrder& order) {
  began_ = services_.clock.Now();
  ShowCaption(u"Abort"_s);
  PartSizes.Write(u"Writing..."_s);
  PartSizes.setToolTip({});
  writing_ =
      services_.parts.Begin(order, {.progress = [this](int percent) { Progress(percent); },
                                    .ended = [this](const auto& written) { Ended(written); }});
  Q_EMIT WritingChanged(true);
}

void PartsPanel::Progress(int percent) {
  auto text = u"Writing: %1 %"_s.arg(percent);
  if (percent > 0) {
    constexpr int whole = 100;
    const double elapsed = services_.clock.Now() - began_;
    text += u", %1 left"_s.arg(DurationText(elapsed * (whole - percent) / percent));
  }
  PartSizes.Write(text);
}

void PartsPanel::Stop() {
  if (std::exchange(writing_, nullptr) != nullptr) {
    ShowIdle();
    Q_EMIT WritingChanged(false);
  }
}

void PartsPanel::Ended(const PartWriter::Written& written) {
  Stop();
  QStringList lines;
  if (!written) {
    lines.append(written.error());
  } else {
    lines.append(u"%1 segments were written:"_s.arg(written->size()));
    for (const auto& part : *written) {
      lines.append(PartText(part));
    }
  }
  services_.boxes.Tell(&window_, lines.join(u'\n'));
}

void PartsPanel::AskToClose(const std::function<void()>& agreed) {
  if (writing_ == nullptr) {
    agreed();
    return;
  }
  services_.boxes.Ask(&window_, u"The segments are being written. Abort?"_s,
                      BoxButtons::YesNoDefaultNo, [agreed](BoxAnswer answer) {
                        if (answer == BoxAnswer::Yes) {
                          agreed();
                        }
                      });
}

}  // namespace brindle
