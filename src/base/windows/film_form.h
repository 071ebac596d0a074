// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include <QLayout>
#include <QObject>
#include <QString>

#include "base/input/elided_label.h"
#include "base/input/file_drop.h"
#include "base/input/form.h"
#include "base/input/form_filler.h"
#include "base/input/option_group.h"
#include "base/input/push_button.h"
#include "base/input/slider.h"
#include "base/input/text_field.h"
#include "base/windows/file_opener.h"
#include "base/windows/film_source.h"
#include "base/windows/services.h"
#include "media/film.h"

namespace brindle {

/// A calculator that a film can fill: one that is dropped anywhere on it, or opened with the button
/// at its bottom. The line beside the button says which film it was, until somebody changes what
/// the film filled.
class FilmForm : public Form, public FileOpener {
  Q_OBJECT

 public:
  /// Begins to read the film; when it is read, the window is filled.
  void OpenFile(const QString& path) override;

  void WillClose() override { Stop(); }

 protected:
  FilmForm(Services& services, const QString& name, const QString& caption);

  /// LayOut(), with the line of the film below the tree.
  void LayOutAboveFilm(QLayout* tree);

  /// Fills the window, as a person who looks the figures up would. What the film does not tell
  /// stays.
  virtual void FillFrom(const Film& film, FormFiller& filler) = 0;

  /// Types a text where the film gives one.
  template <class Control>
  static void FillIf(FormFiller& filler, Control& control, const std::optional<QString>& text) {
    if (text) {
      filler.Type(control, *text);
    }
  }

  /// Types the running time in minutes, then exactly, in hours, minutes and seconds.
  static void FillTime(FormFiller& filler, const Film& film, TextField& minutes,
                       const std::array<TextField*, 3>& parts);

  /// Chooses the frame-rate system that is nearest to the film's rate. `first` is the index of the
  /// option that stands for system 0.
  void ChooseFrameRate(FormFiller& filler, OptionGroup& systems, const Film& film, int first = 0);

  /// The film that the window was filled from; null if there is none, or if somebody has changed
  /// what it filled.
  const Film* CurrentFilm();
  [[nodiscard]] const QString& FilmPath() const { return path_; }

  /// The window is filled, from `film`.
  virtual void FilmTaken(const Film& /*film*/) {}
  /// What the film filled has been changed: there is no film any more.
  virtual void FilmLeft() {}

  /// While something else is done with the film, no other is taken.
  void SetTaking(bool isTaking);

 private:
  // A control as the film left it.
  struct FilledField {
    TextField* field = nullptr;
    double number = 0;
    int changes = 0;
  };
  struct FilledOptions {
    OptionGroup* options = nullptr;
    std::optional<int> selected;
  };

  struct FilledSlider {
    Slider* slider = nullptr;
    int value = 0;
  };

  void FromFile_Click();
  void AskForFilm();
  void Stop();
  void Progress(int percent);
  void Ended(const FilmSource::Read& read);
  void Take(const Film& film);
  void Watch(const FormFiller& filler);
  [[nodiscard]] bool IsAsFilled() const;
  void LeaveIfChanged();
  void Forget();
  void ShowIdle();
  void ShowLine(const QString& text);
  void ShowCaption(const QString& caption);

  Services& services_;
  FileDrop drop_{this};
  PushButton FromFile;
  ElidedLabel FilmLine;

  QString readPath_;  // of the film that is being read
  std::unique_ptr<FilmJob> reading_;
  QString path_;
  std::optional<Film> film_;
  std::optional<int> system_;
  QString text_;
  std::vector<FilledField> fields_;
  std::vector<FilledOptions> options_;
  std::vector<FilledSlider> sliders_;
  std::unique_ptr<QObject> watch_;
};

}  // namespace brindle
