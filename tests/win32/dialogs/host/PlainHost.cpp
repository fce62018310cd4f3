// A host of the plainest kind, which knows the component by its contract alone: one window with a
// class and a message loop of its own, and one task. It does what each line of its standard input
// says, as at the press of a button, and answers by one line. It does so while a dialog is open,
// too.

#include <memory>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "automation/AutomationText.h"
#include "automation/testing/StandInHost.h"
#include "tests/win32/component/ComponentDll.h"
#include "tests/win32/dialogs/host/LineReader.h"
#include "tests/win32/dialogs/host/ScarceMemory.h"
#include "tests/win32/dialogs/host/WindowClasses.h"

namespace imptable {
namespace {

constexpr UINT kLine = WM_APP;
constexpr UINT kTickTime = 50;  // milliseconds
constexpr const wchar_t* kClass = L"PlainHost";
constexpr RECT kPlace{40, 30, 940, 330};

void Say(const std::string& line) {
  const std::string text = line + '\n';
  DWORD written = 0;
  WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), text.data(), static_cast<DWORD>(text.size()), &written,
            nullptr);
}

std::string Failed(HRESULT result) {
  std::ostringstream text;
  text << "failed " << std::hex << static_cast<std::uint32_t>(result);
  return text.str();
}

/// Lives as long as the process, because the thread that reads does.
LineReader& Lines() {
  static LineReader lines;
  return lines;
}

class PlainHost {
 public:
  PlainHost() {
    WNDCLASSW description{};
    description.lpfnWndProc = &OnMessage;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hbrBackground = GetSysColorBrush(COLOR_APPWORKSPACE);
    description.lpszClassName = kClass;
    RegisterClassW(&description);
    window_ = CreateWindowExW(0, kClass, L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, kPlace.left,
                              kPlace.top, kPlace.right - kPlace.left, kPlace.bottom - kPlace.top,
                              nullptr, nullptr, description.hInstance, nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetForegroundWindow(window_);
    SetTimer(window_, 1, kTickTime, nullptr);
  }
  PlainHost(const PlainHost&) = delete;
  PlainHost& operator=(const PlainHost&) = delete;
  ~PlainHost() { DestroyWindow(window_); }

  /// @return the exit code that the request to quit gave.
  int HandleMessages() {
    Say("window " + std::to_string(reinterpret_cast<std::uintptr_t>(window_)));
    Lines().Start(window_, kLine);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
  }

 private:
  static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM word, LPARAM pointer) {
    auto* const host = reinterpret_cast<PlainHost*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == kLine) {
      host->Do(Lines().Take());
    } else if (message == WM_TIMER) {
      ++host->ticks_;
    } else {
      return DefWindowProcW(window, message, word, pointer);
    }
    return 0;
  }

  void Do(const std::vector<std::string>& words) {
    const std::string& command = words.at(0);
    if (command == "quit") {
      PostQuitMessage(std::stoi(words.at(1)));
    } else if (command == "ping") {
      Say("pong");
    } else if (command == "ticks") {
      Say(std::to_string(ticks_));
    } else if (command == "classes") {
      Say(std::to_string(WindowClassesOf(dll_->handle())));
    } else if (command == "icons") {
      const HWND front = GetForegroundWindow();
      const bool are_there = SendMessageW(front, WM_GETICON, ICON_SMALL, 0) != 0 &&
                             SendMessageW(front, WM_GETICON, ICON_BIG, 0) != 0;
      Say(are_there ? "both" : "missing");
    } else if (command == "may-unload") {
      Say(dll_->CanUnloadNow() ? "may" : "may not");
    } else if (command == "unload") {
      Say(Unload());
    } else if (command == "load") {
      dll_ = std::make_unique<ComponentDll>();
      Say("is there");
    } else if (command == "library") {
      MakeLibrary(words);
      Say("is there");
    } else if (command == "scarce-memory") {
      RefuseBlocks(dll_->handle(), std::stoul(words.at(1)));
      Say("refuses");
    } else {
      Say(DoWithTask(words));
    }
  }

  std::string DoWithTask(const std::vector<std::string>& words) {
    const std::string& command = words.at(0);
    HRESULT result = E_NOTIMPL;
    std::string answer;
    if (command == "task") {
      result = MakeTask(words);
    } else if (command == "describe") {
      AutomationString text;
      result = task_->GetTaskDescription(text.Receive());
      answer = std::to_string(text.view().size());
    } else if (command == "show") {
      LONG outcome = -1;
      result = task_->ShowWrapper(&outcome);
      answer = std::to_string(outcome);
    } else if (command == "show-plainly") {
      short outcome = -1;
      result = task_->Affiche(&outcome);
      answer = std::to_string(outcome);
    } else if (command == "show-elsewhere") {
      std::thread([&] { result = ShowElsewhere(); }).join();
    } else if (command == "mode") {
      LONG mode = -1;
      result = task_->GetWorkingMode(&mode);
      answer = std::to_string(mode);
    } else if (command == "run") {
      LONG status = -1;
      result = task_->ExecuteTache();
      if (SUCCEEDED(result)) result = task_->GetStatus(&status);
      answer = std::to_string(status);
    }
    return SUCCEEDED(result) ? answer : Failed(result);
  }

  /// task NAME LANGUAGE REPORT [new]
  HRESULT MakeTask(const std::vector<std::string>& words) {
    task_ = dll_->NewTask();
    if (!task_) return E_FAIL;
    AutomationString name(ToWide(words.at(1)));
    AutomationString scenario(L"S1");
    AutomationString report(ToWide(words.at(3)));
    LONG language = std::stoi(words.at(2));
    BSTR name_text = name.get();
    BSTR scenario_text = scenario.get();
    BSTR report_text = report.get();
    HRESULT result = task_->InitializeProperties(&name_text, &scenario_text, &language);
    if (SUCCEEDED(result)) result = task_->SetReportFilePath(&report_text);
    LONG mode = words.size() > 4 ? 0 : 1;
    if (SUCCEEDED(result)) result = task_->SetWorkingMode(&mode);
    return result;
  }

  /// library title TEXT: an object library of this host, which has a title for the dialog.
  /// library no-title REASON, library no-variables REASON: one that fails to give the title or the
  /// variables.
  void MakeLibrary(const std::vector<std::string>& words) {
    library_ = std::make_unique<StandInHost>();
    const std::string& text = words.at(2);
    const auto fail = [text](auto) -> AutomationValue {
      throw ScriptedFailure{.description = ToWide(text)};
    };
    if (words[1] == "title") {
      library_->Answer("Wrappers", L"GetTitle", text);
    } else if (words[1] == "no-title") {
      library_->On("Wrappers", L"GetTitle") = fail;
    } else {
      library_->On("Variables", L"OpenNames") = fail;
    }
  }

  HRESULT ShowElsewhere() const {
    CoInitialize(nullptr);
    HRESULT result = E_FAIL;
    {
      const ComPointer<_ImpTable> other = dll_->NewTask();
      short outcome = 0;
      result = other->Affiche(&outcome);
    }
    CoUninitialize();
    return result;
  }

  /// Releases everything. @return whether the DLL said that it may go, and whether it went.
  std::string Unload() {
    task_ = {};
    const std::string said = dll_->CanUnloadNow() ? "may" : "may not";
    dll_.reset();
    const bool is_gone = GetModuleHandleW(L"SQLTImpT.dll") == nullptr;
    return said + (is_gone ? ", is gone" : ", is there");
  }

  HWND window_ = nullptr;
  int ticks_ = 0;
  std::unique_ptr<StandInHost> library_;
  std::unique_ptr<ComponentDll> dll_ = std::make_unique<ComponentDll>();
  ComPointer<_ImpTable> task_;
};

}  // namespace
}  // namespace imptable

int main() {
  OleInitialize(nullptr);
  const int code = imptable::PlainHost().HandleMessages();
  OleUninitialize();
  return code;
}
