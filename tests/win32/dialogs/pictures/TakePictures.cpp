// Takes the pictures of the documentation: each tab and dialog, in both languages.
//
//   component_pictures FOLDER

#include <exception>
#include <iostream>
#include <string>

#include "automation/AutomationText.h"
#include "tests/win32/dialogs/DialogWords.h"
#include "tests/win32/dialogs/HostProcess.h"
#include "tests/win32/dialogs/ScreenPerson.h"
#include "tests/win32/dialogs/ShopDatabase.h"
#include "tests/win32/dialogs/pictures/StoredTask.h"

namespace imptable {
namespace {

constexpr int kTabCount = 4;

class Photographer {
 public:
  Photographer(const DialogWords& words, std::wstring folder)
      : words_(words), folder_(std::move(folder)) {}

  void Work() {
    host_.Ask("task\tT1\t" + std::to_string(words_.language) + "\tC:\\report.txt");
    host_.Tell("show");
    person_.WaitForTaskDialog();
    for (int tab = 0; tab < kTabCount; ++tab) {
      person_.ClickTab(tab);
      Take(L"tab" + std::to_wstring(tab));
    }
    TakeColumns();
    TakePickers();
    Escape();
    host_.Answer();
  }

 private:
  void Take(const std::wstring& name) const {
    person_.TakePicture(folder_ + L'\\' + name + L".bmp");
  }

  static void Escape() { ScreenPerson::Press(VK_ESCAPE); }

  void TakeAndLeave(const std::wstring& name) const {
    person_.WaitForOther();
    Take(name);
    Escape();
    person_.WaitForTaskDialog();
  }

  void TakeColumns() const {
    person_.ChooseType(2, TypeMenuLine::kDate);
    TakeAndLeave(L"date");
    person_.ClickCell(1, 1, 3);
    person_.WaitForList();
    Take(L"origin");
    Escape();
    person_.ClickTab(1);
    person_.Click(words_.fixed);
    person_.AnswerBox();
    person_.ClickTab(3);
    person_.ChooseType(1, TypeMenuLine::kLength);
    TakeAndLeave(L"number");
  }

  void TakePickers() const {
    person_.ClickTab(0);
    person_.Click(words_.tables);
    person_.WaitForOther();
    ScreenPerson::Press(VK_DOWN);
    TakeAndLeave(L"tables");
    person_.Click(words_.by_update);
    person_.Click(words_.keys);
    person_.WaitForOther();
    ScreenPerson::Press(VK_DOWN);
    TakeAndLeave(L"keys");
    person_.Click(L"@");
    TakeAndLeave(L"variables");
  }

  const DialogWords& words_;
  std::wstring folder_;
  HostProcess host_;
  const ScreenPerson person_{host_.id(), host_.window()};
};

void TakePicturesIn(const std::wstring& folder) {
  ShopDatabase database;
  database.Execute(
      "CREATE TABLE CLIENT (ID INTEGER PRIMARY KEY, NAME VARCHAR(20), BORN DATE, AMOUNT FLOAT)");
  database.Execute("CREATE TABLE ORDERS (ID INTEGER PRIMARY KEY, CLIENT INTEGER, DAY DATE)");
  database.Execute("CREATE UNIQUE INDEX CLIENT_NAME ON CLIENT (NAME)");
  const StoredTask task;
  Photographer(kFrench, folder + L"\\fr").Work();
  Photographer(kEnglish, folder + L"\\en").Work();
}

}  // namespace
}  // namespace imptable

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: tests/win32/dialogs/on-screen component_pictures FOLDER\n";
    return 2;
  }
  try {
    imptable::TakePicturesIn(imptable::ToWide(argv[1]));
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
