// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "tests/help/help_page.h"

#include <QFile>
#include <QString>
#include <QXmlStreamReader>

#include "shell/window_catalogue.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

class Reader {
 public:
  explicit Reader(QIODevice* source) : xml_(source) {}

  HelpPage Read() {
    while (!xml_.atEnd()) {
      xml_.readNext();
      if (xml_.isStartElement()) {
        Begin();
      } else if (xml_.isEndElement()) {
        End();
      } else if (xml_.isCharacters()) {
        Take(xml_.text());
      }
    }
    page_.error = xml_.errorString();
    return page_;
  }

 private:
  [[nodiscard]] QString Attribute(const QString& name) const {
    return xml_.attributes().value(name).toString();
  }

  void Begin() {
    open_.append(xml_.name().toString());
    const QString& tag = open_.constLast();
    if (const QString anchor = Attribute(u"id"_s); !anchor.isEmpty()) {
      page_.anchors.append(anchor);
    }
    if (tag == u"a"_s || tag == u"link"_s) {
      page_.links.append(Attribute(u"href"_s));
    } else if (tag == u"img"_s) {
      page_.pictures.append(Attribute(u"src"_s));
      if (Attribute(u"alt"_s).isEmpty()) {
        page_.picturesWithoutAlt.append(Attribute(u"src"_s));
      }
    } else if (tag == u"dt"_s) {
      page_.explained += Attribute(u"data-for"_s).split(u' ', Qt::SkipEmptyParts);
    } else if (tag == u"div"_s && Attribute(u"class"_s) == u"example"_s) {
      exampleDepth_ = open_.size();
    } else if (exampleDepth_ > 0) {
      BeginStep(tag);
    }
  }

  void BeginStep(const QString& tag) {
    const bool does = tag == u"kbd"_s;
    const QString control = Attribute(does ? u"data-in"_s : u"data-out"_s);
    if (control.isEmpty()) {
      return;
    }
    page_.example.push_back(
        {.kind = does ? ExampleStep::Kind::Does : ExampleStep::Kind::Shows,
         .window = control.contains(u'/') ? control.section(u'/', 0, 0) : QString(),
         .control = control.section(u'/', -1)});
    stepDepth_ = open_.size();
  }

  void End() {
    if (open_.size() == stepDepth_) {
      stepDepth_ = 0;
    }
    if (open_.size() == exampleDepth_) {
      exampleDepth_ = 0;
    }
    open_.removeLast();
  }

  void Take(QStringView text) {
    if (open_.contains(u"title"_s)) {
      page_.title += text;
      return;
    }
    if (open_.contains(u"h1"_s)) {
      page_.heading += text;
    }
    page_.text += text;
    if (stepDepth_ > 0) {
      page_.example.back().text += text;
    } else if (exampleDepth_ > 0) {
      page_.unprovenText += text;
    }
  }

  QXmlStreamReader xml_;
  HelpPage page_;
  QStringList open_;
  qsizetype exampleDepth_ = 0;
  qsizetype stepDepth_ = 0;
};

}  // namespace

QString HelpFile(const QString& name) { return QStringLiteral(BRINDLE_HELP_FOLDER "/") + name; }

HelpPage ReadHelpPage(const QString& name) {
  QFile file(HelpFile(name + u".html"_s));
  if (!file.open(QIODevice::ReadOnly)) {
    return {.error = file.errorString()};
  }
  return Reader(&file).Read();
}

std::vector<std::string> HelpPages() {
  std::vector<std::string> names{"index", "MainProg"};
  for (const auto& entry : AllWindows()) {
    names.push_back(entry.name.toString().toStdString());
  }
  return names;
}

}  // namespace brindle
