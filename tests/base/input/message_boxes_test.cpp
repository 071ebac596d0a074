// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/message_boxes.h"

#include <functional>
#include <string>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QString>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include "tests/support/user.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

// Does something to the open box once it stands.
void WhenOpen(const std::function<void(QMessageBox*)>& action) {
  QTimer::singleShot(0, qApp, [action] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(box, 10000));
    action(box);
  });
}

std::function<void(QMessageBox*)> Clicking(const std::string& caption) {
  return [caption](QMessageBox* box) {
    for (auto* button : box->buttons()) {
      if (button->text().remove(u'&').toStdString() == caption) {
        Click(button);
        return;
      }
    }
    ADD_FAILURE() << "no button " << caption;
    box->done(0);
  };
}

// Opens a box and handles events until it is gone; nothing where it was not answered.
std::optional<BoxAnswer> Ask(ScreenMessageBoxes& boxes, QWidget* owner, const QString& text,
                             BoxButtons buttons) {
  constexpr int patience = 10000;  // milliseconds
  std::optional<BoxAnswer> answered;
  boxes.Ask(owner, text, buttons, [&](BoxAnswer answer) { answered = answer; });
  EXPECT_TRUE(
      QTest::qWaitFor([] { return QApplication::activeModalWidget() == nullptr; }, patience));
  return answered;
}

struct AnswerCase {
  std::string caption;
  BoxButtons buttons = BoxButtons::Ok;
  BoxAnswer answer = BoxAnswer::Ok;
};

class MessageBoxAnswers : public ::testing::TestWithParam<AnswerCase> {};

TEST_P(MessageBoxAnswers, AreThoseOfTheButtons) {
  const auto& [caption, buttons, answer] = GetParam();
  ModalDialogs dialogs;
  ScreenMessageBoxes boxes(dialogs);
  WhenOpen(Clicking(caption));
  EXPECT_EQ(Ask(boxes, nullptr, u"Text"_s, buttons), answer);
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, MessageBoxAnswers,
    ::testing::Values(
        AnswerCase{"OK", BoxButtons::Ok, BoxAnswer::Ok},
        AnswerCase{"Yes", BoxButtons::YesNo, BoxAnswer::Yes},
        AnswerCase{"No", BoxButtons::YesNo, BoxAnswer::No},
        AnswerCase{"Yes", BoxButtons::YesNoDefaultNo, BoxAnswer::Yes},
        AnswerCase{"No", BoxButtons::YesNoDefaultNo, BoxAnswer::No},
        AnswerCase{"Cancel", BoxButtons::CancelTryAgainContinue, BoxAnswer::Cancel},
        AnswerCase{"Try Again", BoxButtons::CancelTryAgainContinue, BoxAnswer::TryAgain},
        AnswerCase{"Continue", BoxButtons::CancelTryAgainContinue, BoxAnswer::Continue}),
    [](const auto& instance) {
      auto name = instance.param.caption;
      std::erase(name, ' ');
      return name + (instance.param.buttons == BoxButtons::YesNoDefaultNo ? "AtRisk" : "");
    });

struct DefaultCase {
  std::string name;
  BoxButtons buttons = BoxButtons::Ok;
  BoxAnswer answer = BoxAnswer::Ok;
};

class MessageBoxDefault : public ::testing::TestWithParam<DefaultCase> {};

TEST_P(MessageBoxDefault, IsWhatEnterMeans) {
  ModalDialogs dialogs;
  ScreenMessageBoxes boxes(dialogs);
  WhenOpen([](QMessageBox*) { Key(Qt::Key_Return); });
  EXPECT_EQ(Ask(boxes, nullptr, u"Text"_s, GetParam().buttons), GetParam().answer);
}

INSTANTIATE_TEST_SUITE_P(Buttons, MessageBoxDefault,
                         ::testing::Values(DefaultCase{"Ok", BoxButtons::Ok, BoxAnswer::Ok},
                                           DefaultCase{"Yes", BoxButtons::YesNo, BoxAnswer::Yes},
                                           DefaultCase{"NoWhereSomethingIsLost",
                                                       BoxButtons::YesNoDefaultNo, BoxAnswer::No},
                                           DefaultCase{"Cancel", BoxButtons::CancelTryAgainContinue,
                                                       BoxAnswer::Cancel}),
                         [](const auto& instance) { return instance.param.name; });

TEST(MessageBoxes, ShowPlainTextAndStopTheProgram) {
  ModalDialogs dialogs;
  ScreenMessageBoxes boxes(dialogs);
  WhenOpen([](QMessageBox* box) {
    EXPECT_EQ(box->objectName(), u"MessageBox"_s);
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    EXPECT_EQ(box->text(), u"<b>bold</b>"_s);
    EXPECT_EQ(box->windowModality(), Qt::ApplicationModal);
    box->close();
  });
  EXPECT_EQ(Ask(boxes, nullptr, u"<b>bold</b>"_s, BoxButtons::Ok), BoxAnswer::Ok);
}

TEST(MessageBoxes, EscapeMeansCancelWhereThereIsOne) {
  ModalDialogs dialogs;
  ScreenMessageBoxes boxes(dialogs);
  WhenOpen([](QMessageBox*) { Key(Qt::Key_Escape); });
  EXPECT_EQ(Ask(boxes, nullptr, u"Text"_s, BoxButtons::CancelTryAgainContinue), BoxAnswer::Cancel);
}

TEST(MessageBoxes, EscapeMeansNoWhereThatIsAnAnswer) {
  ModalDialogs dialogs;
  ScreenMessageBoxes boxes(dialogs);
  WhenOpen([](QMessageBox*) { Key(Qt::Key_Escape); });
  EXPECT_EQ(Ask(boxes, nullptr, u"Text"_s, BoxButtons::YesNo), BoxAnswer::No);
}

TEST(MessageBoxes, TheEndOfTheProgramIsNoAnswer) {
  ModalDialogs dialogs;
  ScreenMessageBoxes boxes(dialogs);
  WhenOpen([&](QMessageBox*) { dialogs.End(); });
  EXPECT_EQ(Ask(boxes, nullptr, u"Text"_s, BoxButtons::YesNo), std::nullopt);
  EXPECT_EQ(Ask(boxes, nullptr, u"Again"_s, BoxButtons::Ok), std::nullopt);
}

TEST(MessageBoxes, ABoxWhoseOwnerGoesIsNoAnswer) {
  ModalDialogs dialogs;
  ScreenMessageBoxes boxes(dialogs);
  auto* owner = new QWidget;
  owner->show();
  WhenOpen([&](QMessageBox*) { delete owner; });
  EXPECT_EQ(Ask(boxes, owner, u"Text"_s, BoxButtons::YesNo), std::nullopt);
}

}  // namespace
}  // namespace brindle
