// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// Whatever is typed, pasted, clicked or held in any window, in whatever order, nothing crashes,
// nothing shows what is no number, and the settings can be written and read again.

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <variant>
#include <vector>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/input/spin_button.h"
#include "base/input/text_field.h"
#include "base/numbers/rounding.h"
#include "base/settings/settings_lines.h"
#include "tests/contract/any_window.h"
#include "tests/contract/contract_table.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

std::vector<WindowRow> Calculators() {
  auto rows = WindowRows();
  std::erase_if(rows, [](const auto& row) {
    return row.name == "Splash" || row.name == "MainProg" || row.name == "DefaultW" ||
           row.name == "AboutWin" || row.name == "WebUpdate";
  });
  return rows;
}

const std::array Rubbish{
    u"-"_s,        u"."_s,     u"+."_s,         u"e5"_s,
    u"1e"_s,       u"1e308"_s, u"-1e308"_s,     u"1e999"_s,
    u"5e-324"_s,   u"Inf"_s,   u"NaN"_s,        u"1,5"_s,
    u"0"_s,        u"-0"_s,    u"0.0001"_s,     u"99999999999999999999"_s,
    u"12xyz"_s,    u"&H10"_s,  u"١٢"_s,         u" 7 "_s,
    u"<b>1</b>"_s, u"-20"_s,   u"1."_s,         u"60"_s,
    u"59.999"_s,   u"65536"_s, u"2147483648"_s, QString(500, u'9'),
    QString(),
};

class AnyCalculator : public AnyWindow, public ::testing::WithParamInterface<WindowRow> {
 protected:
  void SetUp() override { window = OpenByName(GetParam().name); }

  // Written so, it is what was typed.
  static bool IsNoNumber(const QString& text) {
    return text != u"Inf"_s && text != u"NaN"_s &&
           (text.contains(u"inf"_s, Qt::CaseInsensitive) ||
            text.contains(u"nan"_s, Qt::CaseInsensitive));
  }

  // What somebody is typing stands as it is until it is repaired; everything else is the window's.
  void ExpectNumbers(const QString& after) const {
    for (const auto* label : window->findChildren<QLabel*>()) {
      EXPECT_FALSE(!label->objectName().isEmpty() && IsNoNumber(label->text()))
          << label->objectName().toStdString() << " shows " << label->text().toStdString()
          << " after " << after.toStdString();
    }
    for (const auto* field : window->findChildren<QLineEdit*>()) {
      EXPECT_FALSE(IsNoNumber(field->text()))
          << field->objectName().toStdString() << " shows " << field->text().toStdString()
          << " after " << after.toStdString();
    }
  }

  // What is not finite could not be read again.
  void ExpectSettingsThatCanBeRead(const QString& after) const {
    EXPECT_TRUE(ReadLines(WriteLines(record, true), record).has_value()) << after.toStdString();
  }

  // Sets every number of the settings.
  void FillRecordWith(double value) {
    for (const auto& line : SettingsLines()) {
      if (const auto* asDouble = std::get_if<double Settings::*>(&line.field)) {
        record.** asDouble = value;
      } else if (const auto* asInteger = std::get_if<std::int16_t Settings::*>(&line.field)) {
        record.** asInteger = ToInteger16(value);
      } else if (const auto* asSingle = std::get_if<float Settings::*>(&line.field)) {
        record.** asSingle = static_cast<float>(std::clamp(value, -1e30, 1e30));
      }
    }
  }

  [[nodiscard]] std::vector<TextField*> Fields() const {
    std::vector<TextField*> fields;
    for (auto* field : window->findChildren<TextField*>()) {
      if (field->isEnabled() && field->isVisible() && !field->isReadOnly()) {
        fields.push_back(field);
      }
    }
    return fields;
  }

  // Those that neither close the window nor open another.
  [[nodiscard]] std::vector<QAbstractButton*> Buttons() const {
    std::vector<QAbstractButton*> buttons;
    for (auto* button : window->findChildren<QAbstractButton*>()) {
      if (qobject_cast<QPushButton*>(button) == nullptr && button->isVisible()) {
        buttons.push_back(button);
      }
    }
    return buttons;
  }

  static void Enter(TextField* field, const QString& text) {
    field->setFocus();
    field->selectAll();
    if (text.isEmpty()) {
      Key(Qt::Key_Delete);
    } else {
      Paste(text);
    }
  }

  QPointer<QWidget> window;
};

TEST_P(AnyCalculator, TakesRubbishInEveryField) {
  for (auto* field : Fields()) {
    for (const auto& text : Rubbish) {
      const auto what = text + u" in "_s + field->objectName();
      Enter(field, text);
      ExpectNumbers(what);
      ExpectSettingsThatCanBeRead(what);
      Click(field);
      Key(Qt::Key_Tab);
      ExpectNumbers(what + u", left"_s);
      ExpectSettingsThatCanBeRead(what + u", left"_s);
    }
  }
}

// The same hand in every run.
TEST_P(AnyCalculator, EnduresAnyHand) {
  std::mt19937 random(20261121);  // NOLINT(cert-msc51-cpp)
  const auto below = [&random](std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
  };
  const QString keys = u"0123456789.-+e x"_s;
  for (int i = 0; i < 1500; ++i) {
    const auto fields = Fields();
    const auto buttons = Buttons();
    if (fields.empty()) {
      Click(buttons[below(buttons.size())]);
      continue;
    }
    auto* field = fields[below(fields.size())];
    switch (below(8)) {
      case 0:
        Enter(field, Rubbish.at(below(Rubbish.size())));
        break;
      case 1:
        Type(QString(keys[static_cast<qsizetype>(below(static_cast<std::size_t>(keys.size())))]));
        break;
      case 2:
        Key(std::array{Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home,
                       Qt::Key_Tab, Qt::Key_Backtab}[below(7)]);
        break;
      case 3:
        Click(field);
        break;
      case 4:
        DoubleClick(field);
        break;
      case 5:
        Click(buttons[below(buttons.size())]);
        break;
      case 6: {
        auto* spin = window->findChild<SpinButton*>();
        if (spin != nullptr) {
          Press(spin);
          clock.Advance(0.7);
          LetGo(spin);
          clock.Advance(0.3);
        }
        break;
      }
      default:
        Type(QString::number(below(100000)));
        break;
    }
    ASSERT_TRUE(window != nullptr && window->isVisible()) << "closed at step " << i;
    const auto what = u"step %1"_s.arg(i);
    ExpectNumbers(what);
    ExpectSettingsThatCanBeRead(what);
    if (HasFailure()) {
      return;
    }
  }
}

TEST_P(AnyCalculator, OpensOnARecordFullOfNonsense) {
  window->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  for (const double value : {-1.0, 0.0, 7.0, 32767.0, -32768.0, 1e300, -1e300, 1e-300}) {
    FillRecordWith(value);
    window = OpenByName(GetParam().name);
    ExpectNumbers(QString::number(value));
    for (auto* field : Fields()) {
      Enter(field, u"5"_s);
    }
    ExpectNumbers(QString::number(value));
    ExpectSettingsThatCanBeRead(QString::number(value));
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

INSTANTIATE_TEST_SUITE_P(Each, AnyCalculator, ::testing::ValuesIn(Calculators()),
                         [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace brindle
