// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/windows/film_form.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>

#include <QKeySequence>
#include <QLineEdit>
#include <QObject>
#include <QShortcut>
#include <QString>

#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/windows/film_text.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

QString Opens() { return u"From File..."_s; }

QString NoFilm() { return u"or drop a film here"_s; }

bool IsSame(double one, double other) {
  // The program may write a running time anew, which differs in the last digits then.
  constexpr double noise = 1e-6;
  return std::abs(one - other) <= noise * std::max(1.0, std::abs(one));
}

}  // namespace

FilmForm::FilmForm(Services& services, const QString& name, const QString& caption)
    : Form(name, caption),
      services_(services),
      FromFile(u"FromFile"_s, Opens(), u"Fill this window with the figures of a film (Ctrl+O)"_s),
      FilmLine(u"FilmLine"_s, NoFilm()) {
  FilmLine.ElideEnd();  // the name of the film comes first
  FilmLine.setAccessibleDescription({});
  // Not the button's own: that would press Stop, too.
  new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_O), this, this, &FilmForm::AskForFilm);
  connect(&FromFile, &PushButton::clicked, this, &FilmForm::FromFile_Click);
  connect(&drop_, &FileDrop::Dropped, this, &FilmForm::OpenFile);
}

void FilmForm::LayOutAboveFilm(QLayout* tree) {
  auto* line = Across({&FromFile}, Spacing);
  line->addWidget(&FilmLine, 1);
  LayOut(this, Down({tree, line}));
  drop_.CoverFields();
}

void FilmForm::FromFile_Click() {
  if (reading_ != nullptr) {
    Stop();
  } else {
    AskForFilm();
  }
}

void FilmForm::AskForFilm() {
  if (!FromFile.isEnabled()) {
    return;
  }
  const QStringList filters{
      u"Films (*.avi *.mkv *.mp4 *.m4v *.mov *.mpg *.mpeg *.vob *.ts *.m2ts "
      "*.asf *.wmv *.flv *.ogm *.ogv *.divx)"_s,
      u"All Files (*.*) (*)"_s};
  services_.dialogs.AskForExisting(
      this, {.name = u"FilmDialog"_s, .title = u"Open Film"_s, .filters = filters, .start = path_},
      [this](const QString& path) { OpenFile(path); });
}

void FilmForm::OpenFile(const QString& path) {
  if (!FromFile.isEnabled()) {
    return;
  }
  Stop();
  readPath_ = path;
  ShowCaption(u"Stop"_s);
  ShowLine(u"Reading %1..."_s.arg(NameOfFile(path)));
  reading_ = services_.films.Begin(path, {.progress = [this](int percent) { Progress(percent); },
                                          .ended = [this](const auto& read) { Ended(read); }});
}

void FilmForm::Stop() {
  if (std::exchange(reading_, nullptr) != nullptr) {
    ShowIdle();
  }
}

void FilmForm::Progress(int percent) {
  ShowLine(u"Reading %1: %2 %"_s.arg(NameOfFile(readPath_)).arg(percent));
}

void FilmForm::Ended(const FilmSource::Read& read) {
  reading_.reset();
  if (read) {
    Take(*read);
  }
  ShowIdle();
  if (!read) {
    services_.boxes.Tell(this, read.error());
  }
}

void FilmForm::Take(const Film& film) {
  watch_.reset();
  film_.reset();  // the film before is not the one that fills now
  system_.reset();
  FormFiller filler(*this);
  FillFrom(film, filler);
  filler.Leave(FromFile);
  path_ = readPath_;
  film_ = film;
  text_ = FilmText(path_, film, system_);
  Watch(filler);
  FilmTaken(*film_);
}

// The minutes first: while only some of the parts are typed, these must not add up to nothing.
void FilmForm::FillTime(FormFiller& filler, const Film& film, TextField& minutes,
                        const std::array<TextField*, 3>& parts) {
  FillIf(filler, minutes, MinutesOf(film));
  if (const auto time = TimeOf(film)) {
    filler.Type(*parts[0], time->hours);
    filler.Type(*parts[1], time->minutes);
    filler.Type(*parts[2], time->seconds);
  }
}

void FilmForm::ChooseFrameRate(FormFiller& filler, OptionGroup& systems, const Film& film,
                               int first) {
  if (const auto system = NearestSystem(film)) {
    filler.Choose(systems, first + *system);
    if (systems.Selected() == first + *system) {
      system_ = system;
    }
  }
}

void FilmForm::Watch(const FormFiller& filler) {
  Forget();
  watch_ = std::make_unique<QObject>();
  const auto look = [this] { LeaveIfChanged(); };
  for (auto* field : filler.Fields()) {
    fields_.push_back({field, NumberIn(*field), field->Changes()});
    connect(field, &QLineEdit::textChanged, watch_.get(), look);
  }
  for (auto* options : filler.Options()) {
    options_.push_back({options, options->Selected()});
    connect(options, &OptionGroup::Click, watch_.get(), look);
  }
  for (auto* slider : filler.Sliders()) {
    sliders_.push_back({slider, slider->value()});
    connect(slider, &Slider::Change, watch_.get(), look);
  }
}

bool FilmForm::IsAsFilled() const {
  return std::all_of(fields_.begin(), fields_.end(),
                     [](const auto& filled) {
                       return filled.field->Changes() == filled.changes &&
                              IsSame(NumberIn(*filled.field), filled.number);
                     }) &&
         std::all_of(
             options_.begin(), options_.end(),
             [](const auto& filled) { return filled.options->Selected() == filled.selected; }) &&
         std::all_of(sliders_.begin(), sliders_.end(),
                     [](const auto& filled) { return filled.slider->value() == filled.value; });
}

void FilmForm::Forget() {
  fields_.clear();
  options_.clear();
  sliders_.clear();
}

void FilmForm::LeaveIfChanged() {
  if (!film_ || IsAsFilled()) {
    return;
  }
  film_.reset();
  watch_.release()->deleteLater();  // its signal may have led here
  Forget();
  if (reading_ == nullptr) {
    ShowIdle();
  }
  FilmLeft();
}

const Film* FilmForm::CurrentFilm() {
  LeaveIfChanged();
  return film_ ? &*film_ : nullptr;
}

void FilmForm::SetTaking(bool isTaking) {
  FromFile.setEnabled(isTaking);
  drop_.SetAccepting(isTaking);
}

void FilmForm::ShowIdle() {
  ShowCaption(Opens());
  ShowLine(film_ ? text_ : NoFilm());
}

// The text is the line's name for screen readers; they need not say it twice.
void FilmForm::ShowLine(const QString& text) {
  FilmLine.Write(text);
  FilmLine.setAccessibleDescription({});
}

// The button keeps its width, so that nothing moves.
void FilmForm::ShowCaption(const QString& caption) {
  FromFile.setMinimumWidth(caption == Opens() ? 0 : FromFile.width());
  FromFile.setText(caption);
  FromFile.setAccessibleName(caption);
}

}  // namespace brindle
