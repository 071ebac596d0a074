// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/modal_dialogs.h"

#include <functional>
#include <optional>
#include <vector>

#include <QApplication>
#include <QCoreApplication>
#include <QDialog>
#include <QEvent>
#include <QPointer>
#include <QString>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/input/form.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class ModalDialogsTest : public ::testing::Test {
 protected:
  // Opens a dialog, which notes its result in `results`.
  QPointer<QDialog> Open(QWidget* owner = nullptr) {
    const QPointer dialog(new QDialog(owner));
    dialogs.Open(dialog, [this](int result) { results.push_back(result); });
    return dialog;
  }
  static void RunDeletions() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  ModalDialogs dialogs;
  std::vector<int> results;
};

TEST_F(ModalDialogsTest, GiveTheResultAndAreDeleted) {
  for (const int result : {7, static_cast<int>(QDialog::Accepted)}) {
    const auto dialog = Open();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(results, std::vector<int>());
    dialog->done(result);
    EXPECT_EQ(results, std::vector<int>{result});
    RunDeletions();
    EXPECT_EQ(dialog, nullptr);
    results.clear();
  }
  Open()->close();
  EXPECT_EQ(results, std::vector<int>{QDialog::Rejected});
}

TEST_F(ModalDialogsTest, AreNotWaitedFor) {
  const auto dialog = Open();
  EXPECT_TRUE(dialog->isVisible());
  dialog->accept();
}

TEST_F(ModalDialogsTest, StopTheWholeProgram) {
  const auto dialog = Open();
  EXPECT_EQ(dialog->windowModality(), Qt::ApplicationModal);
  EXPECT_EQ(QApplication::activeModalWidget(), dialog);
  dialog->accept();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(ModalDialogsTest, GiveNothingWhenTheOwnerIsDeleted) {
  auto* owner = new QWidget;
  owner->show();
  const auto dialog = Open(owner);
  delete owner;
  EXPECT_EQ(dialog, nullptr);
  EXPECT_EQ(results, std::vector<int>());
  Open()->done(3);
  EXPECT_EQ(results, std::vector<int>{3}) << "the others still open";
}

TEST_F(ModalDialogsTest, GiveNothingWhenTheOwnerIsClosed) {
  Form owner(u"Owner"_s, u"Owner"_s);
  owner.show();
  const auto dialog = Open(&owner);
  owner.close();
  ASSERT_NE(dialog, nullptr);
  EXPECT_FALSE(dialog->isVisible());
  dialog->done(QDialog::Accepted);
  EXPECT_EQ(results, std::vector<int>());
  RunDeletions();
  EXPECT_EQ(dialog, nullptr);
}

TEST_F(ModalDialogsTest, GiveNothingWhenTheProgramEnds) {
  const auto dialog = Open();
  dialogs.End();
  EXPECT_EQ(results, std::vector<int>());
  EXPECT_FALSE(dialog->isVisible());
}

TEST_F(ModalDialogsTest, AnAnswerAfterTheEndCountsAsNone) {
  const auto dialog = Open();
  dialogs.End();
  dialog->done(QDialog::Accepted);
  EXPECT_EQ(results, std::vector<int>());
}

TEST_F(ModalDialogsTest, EndTogether) {
  const auto outer = Open();
  const auto inner = Open();
  dialogs.End();
  EXPECT_EQ(results, std::vector<int>());
  EXPECT_FALSE(inner->isVisible());
  EXPECT_FALSE(outer->isVisible());
}

TEST_F(ModalDialogsTest, OverEachOtherEachHasItsResult) {
  const auto outer = Open();
  const auto inner = Open();
  inner->done(2);
  EXPECT_EQ(results, std::vector<int>{2});
  EXPECT_TRUE(outer->isVisible());
  outer->done(1);
  EXPECT_EQ(results, (std::vector<int>{2, 1}));
}

TEST_F(ModalDialogsTest, OpenFromTheAnswerOfTheOneBefore) {
  QPointer<QDialog> second;
  auto* first = new QDialog;
  dialogs.Open(first, [&](int) { second = Open(); });
  first->accept();
  ASSERT_NE(second, nullptr);
  EXPECT_TRUE(second->isVisible());
  second->done(5);
  EXPECT_EQ(results, std::vector<int>{5});
}

TEST_F(ModalDialogsTest, NoneOpensAfterTheEnd) {
  dialogs.End();
  const auto dialog = Open();
  EXPECT_EQ(dialog, nullptr);
  EXPECT_EQ(results, std::vector<int>());
  dialogs.End();
}

TEST_F(ModalDialogsTest, DismissedAreGoneAndOthersOpen) {
  const auto dialog = Open();
  dialogs.Dismiss();
  EXPECT_FALSE(dialog->isVisible());
  Open()->done(4);
  EXPECT_EQ(results, std::vector<int>{4});
}

TEST_F(ModalDialogsTest, WhatWaitsForNoneToBeOpenRunsAtOnceOrAfterTheLastAnswer) {
  int ran = 0;
  const auto run = [&] { ++ran; };
  dialogs.WhenNoneIsOpen(run);
  EXPECT_EQ(ran, 1);
  const auto first = Open();
  const auto second = Open();
  dialogs.WhenNoneIsOpen(run);
  first->accept();
  EXPECT_EQ(ran, 1);
  second->accept();
  EXPECT_EQ(ran, 2);
  Open()->accept();
  EXPECT_EQ(ran, 2);
}

TEST_F(ModalDialogsTest, WhatWaitsForNoneToBeOpenRunsWhenTheOwnerOfTheLastIsClosedOrDeleted) {
  int ran = 0;
  const auto run = [&] { ++ran; };
  {
    Form owner(u"Owner"_s, u"Owner"_s);
    owner.show();
    Open(&owner);
    dialogs.WhenNoneIsOpen(run);
    owner.close();
    EXPECT_EQ(ran, 1);
  }
  auto* owner = new QWidget;
  Open(owner);
  delete owner;
  dialogs.WhenNoneIsOpen(run);
  EXPECT_EQ(ran, 2);
}

TEST_F(ModalDialogsTest, WhatWaitsForNoneToBeOpenIsForgottenWithThem) {
  int ran = 0;
  Open();
  dialogs.WhenNoneIsOpen([&] { ++ran; });
  dialogs.Dismiss();
  Open()->accept();
  EXPECT_EQ(ran, 0);
}

}  // namespace
}  // namespace brindle
