// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/task_panel.h"

#include <QBoxLayout>
#include <QString>

#include "base/input/layout.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

QString Scanning() { return u"Scanning..."_s; }
QString Normalizing() { return u"Normalizing..."_s; }
QString Undoing() { return u"Undoing..."_s; }

}  // namespace

TaskPanel::TaskPanel()
    : btnOpen(u"btnOpen"_s, u"Open WAV"_s, u"Select a 16bit PCM WAV file to normalize"_s),
      btnScan(u"btnScan"_s, u"Scan for Peaks"_s, u"Scan file for peaks"_s),
      btnNorm(u"btnNorm"_s, u"Normalize"_s, u"Normalize selected file"_s),
      Undo(u"Undo"_s, u"Undo"_s, u"Take back what normalizing has made of this file"_s),
      Cancel(u"Cancel"_s, u"Abort"_s, u"Abort task"_s),
      Status(u"Status"_s, {}, {Scanning(), Normalizing(), Undoing()}) {
  NameByLabel(u"Status"_s, {&Status});
  KeepRoom({&btnScan, &btnNorm, &Undo, &Cancel});
}

QBoxLayout* TaskPanel::Buttons() {
  return Across({&btnOpen, &btnScan, &btnNorm, &Undo, Item::Stretch(), &Cancel}, Spacing);
}

QBoxLayout* TaskPanel::Progress() { return progress_.Line(&Status); }

void TaskPanel::BeginScan() { Begin(Scanning()); }
void TaskPanel::BeginNormalization() { Begin(Normalizing()); }
void TaskPanel::BeginUndo() { Begin(Undoing()); }

void TaskPanel::Begin(const QString& status) {
  Cancel.show();
  Cancel.setFocus();
  progress_.ShowProgress();
  Status.Write(status);
}

void TaskPanel::SetIdle(bool isIdle) {
  btnOpen.setEnabled(isIdle);
  btnScan.setEnabled(isIdle);
  btnNorm.setEnabled(isIdle);
  Undo.setEnabled(isIdle);
}

void TaskPanel::HideCancel() {
  if (Cancel.window()->focusWidget() == &Cancel) {
    btnScan.setFocus();
  }
  Cancel.hide();
}

}  // namespace brindle
