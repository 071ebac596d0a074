// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/modal_dialogs.h"

#include <functional>
#include <optional>

#include <QDialog>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

namespace brindle {
namespace {

// Runs a dialog and does something while it stands.
std::optional<int> RunMeanwhile(ModalDialogs& dialogs, const QPointer<QDialog>& dialog,
                                const std::function<void()>& meanwhile) {
  QTimer::singleShot(0, dialog, [dialog, meanwhile] {
    EXPECT_TRUE(dialog->isVisible());
    meanwhile();
  });
  return dialogs.Run(dialog);
}

TEST(ModalDialogs, GiveTheResult) {
  ModalDialogs dialogs;
  QDialog dialog;
  EXPECT_EQ(RunMeanwhile(dialogs, &dialog, [&] { dialog.done(7); }), 7);
  EXPECT_EQ(RunMeanwhile(dialogs, &dialog, [&] { dialog.accept(); }), QDialog::Accepted);
  EXPECT_EQ(RunMeanwhile(dialogs, &dialog, [&] { dialog.close(); }), QDialog::Rejected);
}

TEST(ModalDialogs, StopTheWholeProgram) {
  ModalDialogs dialogs;
  QDialog dialog;
  RunMeanwhile(dialogs, &dialog, [&] {
    EXPECT_EQ(dialog.windowModality(), Qt::ApplicationModal);
    dialog.accept();
  });
}

TEST(ModalDialogs, GiveNothingWhenTheOwnerGoes) {
  ModalDialogs dialogs;
  auto* owner = new QWidget;
  owner->show();
  const QPointer<QDialog> dialog(new QDialog(owner));
  EXPECT_EQ(RunMeanwhile(dialogs, dialog, [&] { delete owner; }), std::nullopt);
  EXPECT_EQ(dialog, nullptr);
  QDialog next;
  EXPECT_EQ(RunMeanwhile(dialogs, &next, [&] { next.done(3); }), 3) << "the others still open";
}

TEST(ModalDialogs, GiveNothingWhenTheProgramEnds) {
  ModalDialogs dialogs;
  QDialog dialog;
  EXPECT_EQ(RunMeanwhile(dialogs, &dialog, [&] { dialogs.End(); }), std::nullopt);
  EXPECT_FALSE(dialog.isVisible());
}

TEST(ModalDialogs, AnAnswerAfterTheEndCountsAsNone) {
  ModalDialogs dialogs;
  QDialog dialog;
  EXPECT_EQ(RunMeanwhile(dialogs, &dialog,
                         [&] {
                           dialogs.End();
                           dialog.done(QDialog::Accepted);
                         }),
            std::nullopt);
}

TEST(ModalDialogs, EndTogether) {
  ModalDialogs dialogs;
  QDialog outer;
  QDialog inner;
  std::optional<int> innerResult = 1;
  const auto outerResult = RunMeanwhile(dialogs, &outer, [&] {
    innerResult = RunMeanwhile(dialogs, &inner, [&] { dialogs.End(); });
  });
  EXPECT_EQ(innerResult, std::nullopt);
  EXPECT_EQ(outerResult, std::nullopt);
  EXPECT_FALSE(inner.isVisible());
  EXPECT_FALSE(outer.isVisible());
}

TEST(ModalDialogs, InsideEachOtherEachHasItsResult) {
  ModalDialogs dialogs;
  QDialog outer;
  QDialog inner;
  std::optional<int> innerResult;
  const auto outerResult = RunMeanwhile(dialogs, &outer, [&] {
    innerResult = RunMeanwhile(dialogs, &inner, [&] { inner.done(2); });
    EXPECT_TRUE(outer.isVisible());
    outer.done(1);
  });
  EXPECT_EQ(innerResult, 2);
  EXPECT_EQ(outerResult, 1);
}

TEST(ModalDialogs, NoneOpensAfterTheEnd) {
  ModalDialogs dialogs;
  dialogs.End();
  QDialog dialog;
  bool stood = false;
  QTimer::singleShot(0, &dialog, [&] { stood = true; });
  EXPECT_EQ(dialogs.Run(&dialog), std::nullopt);
  EXPECT_FALSE(stood);
  EXPECT_FALSE(dialog.isVisible());
  dialogs.End();
}

}  // namespace
}  // namespace brindle
