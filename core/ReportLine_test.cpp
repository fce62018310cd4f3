#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/testing/TemporaryFolder.h"
#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

class Form : public HostForm {
 public:
  std::string Text() const override { return text; }
  void SetText(const std::string& new_text) override {
    if (broken) throw RuntimeFault(FaultNumber::kNoHostObject, "Text");
    text = new_text;
  }
  std::int32_t Tag() const override { return tag; }
  void SetTag(std::int32_t new_tag) override { tag = new_tag; }

  std::string text;
  std::int32_t tag = 0;
  bool broken = false;
};

class Button : public HostDisplay {
 public:
  explicit Button(HostForm* its_form) : form(its_form) {}
  HostForm* wForm() override {
    if (broken) throw RuntimeFault(FaultNumber::kNoHostObject, "wForm");
    return form;
  }

  HostForm* form;
  bool broken = false;
};

class ReportLine : public testing::Test {
 protected:
  ReportLine() { WriteTo("log.txt"); }

  void WriteTo(const std::string& name) {
    name_ = name;
    component_.module().report_path = folder_.path() + name;
  }
  bool Line(const std::string& text, ReportKind kind = ReportKind::kInformation) {
    return component_.module().ReportLine(text, &button_, kind);
  }
  std::string Report() const { return folder_.Read(name_); }

  TemporaryFolder folder_{testing::TempDir()};
  TestComponent component_;
  Form form_;
  Button button_{&form_};
  std::string name_;
};

TEST_F(ReportLine, IsPlainWithDateTimeAndABlank) {
  for (const char* name : {"log.txt", "log.html", "log", "log.htm.bak", "tm.txt"}) {
    WriteTo(name);
    EXPECT_TRUE(Line("X", ReportKind::kError));
    EXPECT_EQ(Report(), "15/11/2006 08:30:00 X\r\n") << name;
  }
}

TEST_F(ReportLine, IsHtmlWhenThePathEndsWithTm) {
  for (const char* name : {"log.htm", "xtm", "log.txt.tm"}) {
    WriteTo(name);
    Line("X", ReportKind::kError);
    EXPECT_EQ(Report(),
              "<font color=\"#FF0000\"><strong>15/11/2006 08:30:00 X</strong></font><br>\r\n")
        << name;
  }
}

TEST_F(ReportLine, IsColouredByItsKind) {
  struct Colour {
    std::int16_t kind;
    std::string_view line;
  };
  constexpr Colour kColours[] = {
      {0, "<font color=\"#004080\"><strong>15/11/2006 08:30:00 a</strong></font><br>\r\n"},
      {1, "<font color=\"#FF0000\"><strong>15/11/2006 08:30:00 a</strong></font><br>\r\n"},
      {2, "<strong>15/11/2006 08:30:00 a</strong><br>\r\n"},
      {3, "<strong>15/11/2006 08:30:00 a</strong><br>\r\n"},
      {4, "<font color=\"#008000\"><strong>15/11/2006 08:30:00 a</strong></font><br>\r\n"},
      {-1, "<strong>15/11/2006 08:30:00 a</strong><br>\r\n"},
  };
  for (const Colour& colour : kColours) {
    WriteTo("kind" + std::to_string(colour.kind) + ".htm");
    Line("a", static_cast<ReportKind>(colour.kind));
    EXPECT_EQ(Report(), colour.line);
  }
}

TEST_F(ReportLine, IsAppended) {
  folder_.Write("log.txt", "before\r\n");
  Line("one");
  component_.clock.Set({2006, 11, 15, 8, 30, 1});
  Line(" <two> ");
  EXPECT_EQ(Report(), "before\r\n15/11/2006 08:30:00 one\r\n15/11/2006 08:30:01  <two> \r\n");
}

TEST_F(ReportLine, GoesToTheDisplayWithoutMarkupNewestFirst) {
  WriteTo("log.htm");
  Line("one", ReportKind::kError);
  EXPECT_EQ(form_.text, "15/11/2006 08:30:00 one\n");
  EXPECT_EQ(form_.tag, 1);
  Line("two");
  EXPECT_EQ(form_.text, "15/11/2006 08:30:00 two\n15/11/2006 08:30:00 one\n");
  EXPECT_EQ(form_.tag, 2);
}

TEST_F(ReportLine, LeavesTheSeventhAloneOnTheDisplay) {
  for (int n = 1; n <= 6; ++n) Line(std::to_string(n));
  EXPECT_EQ(form_.tag, 6);
  EXPECT_EQ(form_.text,
            "15/11/2006 08:30:00 6\n15/11/2006 08:30:00 5\n15/11/2006 08:30:00 4\n"
            "15/11/2006 08:30:00 3\n15/11/2006 08:30:00 2\n15/11/2006 08:30:00 1\n");
  Line("7");
  EXPECT_EQ(form_.text, "15/11/2006 08:30:00 7");
  EXPECT_EQ(form_.tag, 1);
  Line("8");
  EXPECT_EQ(form_.text, "15/11/2006 08:30:00 8\n15/11/2006 08:30:00 7");
  EXPECT_EQ(form_.tag, 2);
}

TEST_F(ReportLine, GoesByTheCounterThatTheHostLeft) {
  form_.text = "host's";
  form_.tag = 5;
  Line("a");
  EXPECT_EQ(form_.text, "15/11/2006 08:30:00 a\nhost's");
  EXPECT_EQ(form_.tag, 6);
  form_.tag = 99;
  Line("b");
  EXPECT_EQ(form_.text, "15/11/2006 08:30:00 b");
  EXPECT_EQ(form_.tag, 1);
}

TEST_F(ReportLine, YieldsOnceAfterTheDisplayHasChanged) {
  std::string seen;
  component_.message_loop.AtYield(1, [&] { seen = form_.text; });
  Line("a");
  EXPECT_EQ(component_.message_loop.yields(), 1);
  EXPECT_EQ(seen, "15/11/2006 08:30:00 a\n");
}

TEST_F(ReportLine, EndsSilentlyBeforeTheDisplayWhenTheReportCannotBeWritten) {
  WriteTo("missing/log.txt");
  EXPECT_FALSE(Line("a"));
  WriteTo("log.txt");
  component_.files.Fail(FileOperation::kWrite, 1,
                        std::make_error_code(std::errc::no_space_on_device));
  EXPECT_FALSE(Line("b"));
  component_.files.Fail(FileOperation::kClose, 1, std::make_error_code(std::errc::io_error));
  EXPECT_FALSE(Line("c"));
  EXPECT_EQ(form_.text, "");
  EXPECT_EQ(form_.tag, 0);
  EXPECT_EQ(component_.message_loop.yields(), 0);
}

TEST_F(ReportLine, EndsSilentlyAfterTheReportWhenThereIsNoDisplay) {
  EXPECT_TRUE(component_.module().ReportLine("a", nullptr, ReportKind::kError));
  button_.form = nullptr;
  EXPECT_TRUE(Line("b"));
  button_.broken = true;
  EXPECT_TRUE(Line("c"));
  EXPECT_EQ(Report(),
            "15/11/2006 08:30:00 a\r\n15/11/2006 08:30:00 b\r\n15/11/2006 08:30:00 c\r\n");
  EXPECT_EQ(component_.message_loop.yields(), 0);
}

TEST_F(ReportLine, EndsSilentlyWhenTheDisplayRefusesTheText) {
  form_.broken = true;
  EXPECT_TRUE(Line("a"));
  EXPECT_EQ(Report(), "15/11/2006 08:30:00 a\r\n");
  EXPECT_EQ(form_.tag, 0);
  EXPECT_EQ(component_.message_loop.yields(), 0);
}

TEST_F(ReportLine, EndsSilentlyWhenTheHostFailsWhileItRepaints) {
  component_.message_loop.AtYield(1, [] { throw std::runtime_error("no window"); });
  EXPECT_TRUE(Line("a"));
  EXPECT_EQ(component_.message_loop.yields(), 1);
}

TEST_F(ReportLine, IsWrittenInTheCodePageOfItsText) {
  TestComponent latin(std::make_unique<Latin1TextEncoding>());
  latin.module().report_path = folder_.path() + "latin.txt";
  latin.module().ReportLine(latin.module().MessageText(Message::kEdited), nullptr,
                            ReportKind::kInformation);
  EXPECT_EQ(folder_.Read("latin.txt"), "15/11/2006 08:30:00  Enregistrement(s) modifi\xe9(s)\r\n");
}

}  // namespace
}  // namespace imptable
