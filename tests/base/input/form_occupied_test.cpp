// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <functional>
#include <optional>

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <gtest/gtest.h>

#include "base/input/form.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

// A window whose function lets events in.
class BusyForm : public Form {
 public:
  BusyForm() : Form(u"BusyForm"_s, u"Busy"_s) {
    connect(this, &Form::Closed, this, [this] { DeleteWhenLeft(); });
  }
  ~BusyForm() override { EXPECT_EQ(running, 0) << "deleted under its own function"; }

  void Run(const std::function<void()>& meanwhile) {
    const Occupied inside(*this);
    ++running;
    meanwhile();
    --running;  // of a deleted window, the sanitizer objects
  }

  int running = 0;
};

// A turn of an event loop within whatever runs, deletions included.
void TurnTheLoop() {
  QEventLoop loop;
  QTimer::singleShot(0, &loop, &QEventLoop::quit);
  loop.exec();
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST(FormOccupied, AClosedFormIsDeletedAtOnceWhereNothingRuns) {
  const QPointer<BusyForm> form(new BusyForm);
  form->show();
  form->close();
  ASSERT_NE(form, nullptr) << "only the event loop may delete it";
  TurnTheLoop();
  EXPECT_EQ(form, nullptr);
}

TEST(FormOccupied, AFormClosedInsideItselfStaysUntilItIsLeft) {
  const QPointer<BusyForm> form(new BusyForm);
  form->show();
  form->Run([&] {
    form->close();
    TurnTheLoop();
    ASSERT_NE(form, nullptr);
    EXPECT_FALSE(form->isVisible());
  });
  ASSERT_NE(form, nullptr) << "only the event loop may delete it";
  TurnTheLoop();
  EXPECT_EQ(form, nullptr);
}

TEST(FormOccupied, AFormClosedDeepInsideItselfStaysUntilTheLastIsLeft) {
  const QPointer<BusyForm> form(new BusyForm);
  form->show();
  form->Run([&] {
    form->Run([&] {
      form->Run([&] { form->close(); });
      TurnTheLoop();
      ASSERT_NE(form, nullptr);
    });
    TurnTheLoop();
    ASSERT_NE(form, nullptr);
  });
  TurnTheLoop();
  EXPECT_EQ(form, nullptr);
}

TEST(FormOccupied, AFormEnteredAgainAfterItsCloseStaysUntilItIsLeft) {
  const QPointer<BusyForm> form(new BusyForm);
  form->show();
  form->Run([&] {
    form->close();
    form->Run([] { TurnTheLoop(); });
    TurnTheLoop();
    ASSERT_NE(form, nullptr);
  });
  TurnTheLoop();
  EXPECT_EQ(form, nullptr);
}

TEST(FormOccupied, AnOpenFormIsLeftInPeace) {
  const QPointer<BusyForm> form(new BusyForm);
  form->show();
  form->Run([] { TurnTheLoop(); });
  TurnTheLoop();
  ASSERT_NE(form, nullptr);
  EXPECT_TRUE(form->isVisible());
  delete form;
}

// A window that is asked first.
class ReluctantForm : public Form {
 public:
  ReluctantForm() : Form(u"ReluctantForm"_s, u"Reluctant"_s) {}
  [[nodiscard]] bool AgreesToClose() override {
    ++asked;
    if (whenAsked) {
      whenAsked();
    }
    return agrees;
  }

  bool agrees = false;
  int asked = 0;
  std::function<void()> whenAsked;
};

TEST(FormClosing, WaitsForTheFormToAgree) {
  ReluctantForm form;
  int closed = 0;
  QObject::connect(&form, &Form::Closed, [&] { ++closed; });
  form.show();
  EXPECT_FALSE(form.close());
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(closed, 0);
  form.agrees = true;
  EXPECT_TRUE(form.close());
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(closed, 1);
  EXPECT_EQ(form.asked, 2);
}

TEST(FormClosing, UnderItsOwnQuestionIsToldOnce) {
  ReluctantForm form;
  form.agrees = true;
  int closed = 0;
  QObject::connect(&form, &Form::Closed, [&] { ++closed; });
  form.show();
  form.whenAsked = [&] {
    form.whenAsked = nullptr;
    form.close();
  };
  form.close();
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(closed, 1);
}

}  // namespace
}  // namespace brindle
