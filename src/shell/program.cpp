// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/program.h"

#include <memory>
#include <utility>

#include <QApplication>
#include <QString>
#include <QWidget>

#include "base/windows/file_opener.h"
#include "shell/window_catalogue.h"

namespace brindle {

Program::Program(Product product, ProgramFolders folders)
    : product_(std::move(product)), folders_(std::move(folders)) {
  AddAllWindows(windows_, services_, [this](const auto& then) { mainProg_->InitDat(then); });
}

void Program::Start(const QString& file) {
  file_ = file;
  splash_ = std::make_unique<Splash>(services_);
  connect(splash_.get(), &Splash::Finished, this, &Program::ShowMainProg);
  splash_->Run();
}

void Program::ShowMainProg() {
  if (ended_) {
    return;
  }
  // The splash is emitting this signal and must not be deleted before it returns.
  splash_->hide();
  splash_.release()->deleteLater();
  mainProg_ = MakeMainProg(services_, folders_);
  places_.emplace(record_.AppFolder);
  connect(&windows_, &OwningWindowList::Made, &*places_, &WindowPlaces::Watch);
  places_->Watch(*mainProg_);
  connect(mainProg_.get(), &Form::Closed, this, &Program::HideAllAndExit);
  // A message about the settings may have to come first.
  modal_.WhenNoneIsOpen([this] {
    mainProg_->show();
    mainProg_->raise();
    mainProg_->activateWindow();
    if (!file_.isEmpty()) {
      OpenFile();
    }
  });
}

void Program::OpenFile() {
  windows_.Open(WindowId::WavNorm);
  dynamic_cast<FileOpener&>(windows_.Load(WindowId::WavNorm)).OpenFile(file_);
}

void Program::End() {
  if (mainProg_ != nullptr) {
    modal_.Dismiss();
    mainProg_->CloseUnasked();
  } else {
    HideAllAndExit();
  }
}

void Program::EndWithSession() {
  End();
  HideAllAndExit();
}

void Program::HideAllAndExit() {
  if (std::exchange(ended_, true)) {
    return;
  }
  modal_.End();
  if (places_) {
    places_->RememberAll();
  }
  for (auto* window : QApplication::topLevelWidgets()) {
    window->hide();
  }
  QApplication::exit(0);
}

}  // namespace brindle
