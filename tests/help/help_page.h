// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include <QString>
#include <QStringList>

namespace brindle {

/// One thing that an example does or says, in the order of the page.
struct ExampleStep {
  enum class Kind {
    Does,  ///< `kbd data-in`: types the text, or chooses or clicks the control of this label
    Shows  ///< `samp data-out`: the text that a control shows
  };
  Kind kind = Kind::Does;
  QString window;  ///< empty: the page's own
  QString control;
  QString text;
};

/// A page of the help as its source has it.
struct HelpPage {
  QString error;  ///< why it cannot be read; empty when it can
  QString title;
  QString heading;
  QString text;                    ///< all of it
  QStringList links;               ///< what a reader can go to
  QStringList pictures;            ///< what is shown
  QStringList picturesWithoutAlt;  ///< those of them that cannot be read out
  QStringList anchors;             ///< places in the page that a link can lead to
  QStringList explained;           ///< names of controls in `dt data-for`
  std::vector<ExampleStep> example;
  QString unprovenText;  ///< the text of the example outside its steps
};

/// The path of a file among the sources of the help.
[[nodiscard]] QString HelpFile(const QString& name);

[[nodiscard]] HelpPage ReadHelpPage(const QString& name);

/// The names of all pages, without the ending: the windows that have help, and the first page.
[[nodiscard]] std::vector<std::string> HelpPages();

}  // namespace brindle
