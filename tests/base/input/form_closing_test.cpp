// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <functional>

#include <QObject>
#include <QString>
#include <gtest/gtest.h>

#include "base/input/form.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

// A window that asks before it is closed: it agrees at once, or when its question is answered.
class ReluctantForm : public Form {
 public:
  ReluctantForm() : Form(u"ReluctantForm"_s, u"Reluctant"_s) {
    QObject::connect(this, &Form::Closed, [this] { ++closed; });
  }
  void WillClose() override { ++stopped; }

  bool agrees = false;
  int asked = 0;
  int stopped = 0;
  int closed = 0;
  std::function<void()> whenAsked;
  std::function<void()> answerYes;

 protected:
  void AskToClose(const std::function<void()>& agreed) override {
    ++asked;
    if (whenAsked) {
      whenAsked();
    }
    answerYes = agreed;
    if (agrees) {
      agreed();
    }
  }
};

TEST(FormClosing, WaitsForTheFormToAgree) {
  ReluctantForm form;
  form.show();
  EXPECT_FALSE(form.close());
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(form.closed, 0);
  EXPECT_EQ(form.stopped, 0);
  form.agrees = true;
  EXPECT_TRUE(form.close());
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(form.closed, 1);
  EXPECT_EQ(form.stopped, 1);
  EXPECT_EQ(form.asked, 2);
}

TEST(FormClosing, IsDoneWhenTheFormAgreesLater) {
  ReluctantForm form;
  form.show();
  EXPECT_FALSE(form.close());
  form.answerYes();
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(form.closed, 1);
  EXPECT_EQ(form.asked, 1);
}

TEST(FormClosing, AsksAnewEachTime) {
  ReluctantForm form;
  form.show();
  form.agrees = true;
  int told = 0;
  EXPECT_TRUE(form.MayClose([&] { ++told; }));
  EXPECT_EQ(told, 0) << "only what is answered later is told";
  form.agrees = false;
  EXPECT_FALSE(form.MayClose([&] { ++told; })) << "what it was doing then may be over";
  EXPECT_EQ(form.asked, 2);
  form.answerYes();
  EXPECT_EQ(told, 1);
  EXPECT_FALSE(form.close()) << "the answer was for that once";
  EXPECT_EQ(form.asked, 3);
}

TEST(FormClosing, UnderItsOwnQuestionIsToldOnce) {
  ReluctantForm form;
  form.agrees = true;
  form.show();
  form.whenAsked = [&] {
    form.whenAsked = nullptr;
    form.close();
  };
  form.close();
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(form.closed, 1);
}

}  // namespace
}  // namespace brindle
