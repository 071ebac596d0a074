// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/window_catalogue.h"

#include <map>
#include <memory>

#include <QIcon>
#include <QImage>
#include <QPushButton>
#include <QString>
#include <gtest/gtest.h>

#include "tests/shell/main_window.h"

namespace brindle {
namespace {

// The overhead settings are opened from the two calculators that count it. A window that another
// one opens, too, has no button here.
TEST_F(MainWindow, HasAButtonForEveryWindowOfTheCatalogueButAdvanced) {
  for (const auto& entry : AllWindows()) {
    windows.Add(entry.id,
                [name = entry.name.toString()] { return std::make_unique<Form>(name, name); });
  }
  Start();
  boxes.Answer(BoxAnswer::Ok);  // there is no start-up entry to remove
  for (auto* button : main->findChildren<QPushButton*>()) {
    button->click();
  }
  for (const auto& entry : AllWindows()) {
    const auto standing = Standing(entry.name.toString()).size();
    EXPECT_EQ(standing, entry.id == WindowId::Advanced ? 0U : 1U)
        << "no button opens " << entry.name.toString().toStdString();
  }
}

TEST_F(MainWindow, HasAPictureForEachWindowThatShowsItInItsTitleBar) {
  AddAllWindows(windows, services, [](const auto& then) { then(); });
  Start();
  const std::map<WindowId, const char*> buttons{
      {WindowId::BitrateCalc, "VideoBC"}, {WindowId::AudioCalc, "AudioBC"},
      {WindowId::HDCalc, "HDC"},          {WindowId::AVISplit, "AVISplitC"},
      {WindowId::AspectRa, "RAR"},        {WindowId::WavNorm, "Normalize"}};
  for (const auto& entry : AllWindows()) {
    const auto icon = windows.Load(entry.id).windowIcon();
    const auto button = buttons.find(entry.id);
    EXPECT_EQ(entry.picture.isEmpty(), button == buttons.end());
    if (button != buttons.end()) {
      const auto* opens = main->findChild<QPushButton*>(QString::fromLatin1(button->second));
      EXPECT_EQ(icon.pixmap(48).toImage(), opens->icon().pixmap(48).toImage()) << button->second;
    }
  }
}

}  // namespace
}  // namespace brindle
