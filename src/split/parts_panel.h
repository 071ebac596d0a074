// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QLayout>
#include <QObject>
#include <QString>

#include "base/input/elided_label.h"
#include "base/input/form.h"
#include "base/input/push_button.h"
#include "base/windows/film_source.h"
#include "base/windows/part_writer.h"
#include "base/windows/services.h"
#include "media/film.h"
#include "split/film_split.h"

namespace brindle {

/// The sizes that the parts of a film will have, and the button that writes them.
class PartsPanel : public QObject {
  Q_OBJECT

 public:
  PartsPanel(Form& window, Services& services);

  /// One line of the window.
  [[nodiscard]] QLayout* Line();

  /// Shows how large the parts of the film at `path` become.
  void Show(const QString& path, const Film& film, const FilmSplit& split);
  /// There is no film.
  void Clear();

  /// Runs `agreed` unless parts are being written and the user wants to go on with that.
  void AskToClose(const std::function<void()>& agreed);
  /// Stops writing; what was written goes.
  void Stop();

 Q_SIGNALS:
  void WritingChanged(bool isWriting);

 private:
  // What can be written.
  struct Shown {
    QString path;
    QString container;
    FilmSplit split;
  };

  void WriteParts_Click();
  void AskToOverwrite(const QString& container, const PartOrder& order);
  void Write(const PartOrder& order);
  void Progress(int percent);
  void Ended(const PartWriter::Written& written);
  void ShowIdle();
  void ShowCaption(const QString& caption);

  Form& window_;
  Services& services_;
  ElidedLabel PartSizes;
  PushButton WriteParts;
  std::optional<Shown> shown_;
  QString text_;
  QString details_;
  std::unique_ptr<FilmJob> writing_;
  double began_ = 0;  // seconds of the clock
};

}  // namespace brindle
