// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/slider.h"

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include <QLineEdit>
#include <QPoint>
#include <QSlider>
#include <QString>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>
#include <gtest/gtest.h>

#include "tests/support/user.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

// Counts the wheel events that its controls pass on to it.
class WheelWindow : public QWidget {
 public:
  int wheels = 0;

 protected:
  void wheelEvent(QWheelEvent* /*event*/) override { ++wheels; }
};

// A slider that says where its handle is.
class SliderWithHandle : public Slider {
 public:
  using Slider::Slider;

  [[nodiscard]] QPoint Handle() const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()
        ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this)
        .center();
  }
};

class SliderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    slider->SetStep(10);
    auto* column = new QVBoxLayout(&window);
    column->addWidget(field);
    column->addWidget(slider);
    QObject::connect(slider, &Slider::Change, slider, [this] {
      changes.push_back(std::to_string(slider->value()) +
                        (slider->IsBeingWritten() ? " program" : " user"));
      if (onChange) {
        onChange();
      }
    });
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window, 10000));
    field->setFocus();
  }

  using Changes = std::vector<std::string>;

  WheelWindow window;
  QLineEdit* field = new QLineEdit;
  SliderWithHandle* slider = new SliderWithHandle(u"S"_s, u"tip"_s, 100, 200);
  Changes changes;
  std::function<void()> onChange;
};

TEST_F(SliderTest, StartsAtItsLeastAndTellsNothing) {
  EXPECT_EQ(slider->objectName(), u"S"_s);
  EXPECT_EQ(slider->toolTip(), u"tip"_s);
  EXPECT_EQ(slider->orientation(), Qt::Horizontal);
  EXPECT_EQ(slider->minimum(), 100);
  EXPECT_EQ(slider->maximum(), 200);
  EXPECT_EQ(slider->value(), 100);
  EXPECT_FALSE(slider->IsBeingWritten());
  EXPECT_EQ(changes, Changes());
}

TEST_F(SliderTest, TellsWhetherTheUserOrTheProgramMovesIt) {
  slider->Write(150);
  EXPECT_FALSE(slider->IsBeingWritten());
  slider->setFocus();
  Key(Qt::Key_Right);
  slider->Write(120);
  EXPECT_EQ(changes, (Changes{"150 program", "160 user", "120 program"}));
}

TEST_F(SliderTest, WritingStopsAtTheEnds) {
  for (const int value :
       {201, 99, 32767, -32768, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    slider->Write(value);
    EXPECT_EQ(slider->value(), value > 150 ? 200 : 100) << value;
  }
  EXPECT_EQ(changes, (Changes{"200 program", "100 program", "200 program", "100 program",
                              "200 program", "100 program"}));
}

TEST_F(SliderTest, WritingWhereItStandsTellsNothing) {
  slider->Write(100);
  slider->Write(-5);
  slider->Write(200);
  slider->Write(200);
  slider->Write(1000);
  EXPECT_EQ(changes, (Changes{"200 program"}));
  EXPECT_FALSE(slider->IsBeingWritten());
}

TEST_F(SliderTest, WritingTakesAnyValueWhateverTheStep) {
  slider->Write(137);
  EXPECT_EQ(slider->value(), 137);
}

TEST_F(SliderTest, WrittenInTheMidstOfAWriteItIsBeingWrittenToTheEndOfTheOuterOne) {
  bool afterInner = false;
  onChange = [&] {
    if (slider->value() == 150) {
      slider->Write(160);
      afterInner = slider->IsBeingWritten();
    }
  };
  slider->Write(150);
  EXPECT_EQ(changes, (Changes{"150 program", "160 program"}));
  EXPECT_TRUE(afterInner);
  EXPECT_FALSE(slider->IsBeingWritten());
  EXPECT_EQ(slider->value(), 160);
}

TEST_F(SliderTest, WrittenWhileTheUserMovesItItIsTheUsersAgainAfterwards) {
  slider->Write(150);
  changes.clear();
  bool afterInner = true;
  onChange = [&] {
    if (slider->value() == 160) {
      slider->Write(155);
      afterInner = slider->IsBeingWritten();
    }
  };
  slider->setFocus();
  Key(Qt::Key_Right);
  EXPECT_EQ(changes, (Changes{"160 user", "155 program"}));
  EXPECT_FALSE(afterInner);
  EXPECT_EQ(slider->value(), 155);
  EXPECT_EQ(slider->sliderPosition(), 155);
}

TEST_F(SliderTest, TheStepIsThatOfTicksArrowsAndPages) {
  for (const int step : {2, 16, 32}) {
    slider->Write(100);
    slider->SetStep(step);
    EXPECT_EQ(slider->tickInterval(), step);
    EXPECT_EQ(slider->singleStep(), step);
    EXPECT_EQ(slider->pageStep(), step);
    EXPECT_NE(slider->tickPosition(), QSlider::NoTicks);
    slider->setFocus();
    Key(Qt::Key_Right);
    EXPECT_EQ(slider->value(), 100 + step);
    Key(Qt::Key_PageUp);
    EXPECT_EQ(slider->value(), 100 + 2 * step);
    Key(Qt::Key_Left);
    Key(Qt::Key_PageDown);
    EXPECT_EQ(slider->value(), 100);
  }
}

TEST_F(SliderTest, ChangingTheStepMovesNothing) {
  slider->Write(137);
  changes.clear();
  slider->SetStep(32);
  EXPECT_EQ(slider->value(), 137);
  EXPECT_EQ(changes, Changes());
}

TEST_F(SliderTest, HomeAndEndGoToTheEnds) {
  slider->setFocus();
  Key(Qt::Key_End);
  Key(Qt::Key_End);
  Key(Qt::Key_Home);
  EXPECT_EQ(changes, (Changes{"200 user", "100 user"}));
}

TEST_F(SliderTest, AClickBesideTheHandleIsOneStepOfTheUser) {
  const QPoint groove(slider->width() / 2, slider->Handle().y());
  QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, slider->mapTo(&window, groove));
  EXPECT_EQ(changes, (Changes{"110 user"}));
  EXPECT_TRUE(slider->hasFocus());
}

TEST_F(SliderTest, DraggingTheHandleIsTheUsersAndEndsAtTheEnds) {
  const auto handle = slider->Handle();
  QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, slider->mapTo(&window, handle));
  MoveTo(slider, {slider->width() + 50, handle.y()});
  MoveTo(slider, {-50, handle.y()});
  QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, slider->mapTo(&window, handle));
  EXPECT_EQ(changes, (Changes{"200 user", "100 user"}));
}

TEST_F(SliderTest, WrittenWhileItIsDraggedItFollowsTheMouseAgain) {
  onChange = [this] {
    if (!slider->IsBeingWritten()) {
      slider->Write(130);
    }
  };
  const auto handle = slider->Handle();
  QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, slider->mapTo(&window, handle));
  MoveTo(slider, {slider->width() + 50, handle.y()});
  EXPECT_EQ(slider->value(), 130);
  onChange = nullptr;
  MoveTo(slider, {-50, handle.y()});
  EXPECT_EQ(slider->value(), 100);
  QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, slider->mapTo(&window, handle));
  EXPECT_EQ(slider->value(), 100);
  EXPECT_EQ(changes, (Changes{"200 user", "130 program", "100 user"}));
}

TEST_F(SliderTest, TheWheelIsLeftToTheWindowWithoutTheFocus) {
  slider->Write(150);
  changes.clear();
  Wheel(slider, 1);
  Wheel(slider, -3);
  EXPECT_EQ(changes, Changes());
  EXPECT_EQ(window.wheels, 2);
  EXPECT_TRUE(field->hasFocus());
}

TEST_F(SliderTest, TheWheelMovesItOneStepWithTheFocus) {
  slider->Write(150);
  changes.clear();
  slider->setFocus();
  Wheel(slider, 1);
  Wheel(slider, -1);
  Wheel(slider, -1);
  EXPECT_EQ(changes, (Changes{"160 user", "150 user", "140 user"}));
  EXPECT_EQ(window.wheels, 0);
}

TEST_F(SliderTest, TabBringsTheFocus) {
  TabTo(slider);
  EXPECT_TRUE(slider->hasFocus());
}

}  // namespace
}  // namespace brindle
