// A client that was compiled against the interface.

#include <fenv.h>
#include <gmock/gmock.h>

#include <limits>

#include "tests/win32/component/TaskKeys.h"

namespace imptable {
namespace {

constexpr LONG kLocalMachine = static_cast<LONG>(0x80000002);

class EarlyBoundClient : public Client {
 protected:
  void Initialize(const wchar_t* name, const wchar_t* scenario, LONG language) {
    AutomationString name_text(name);
    AutomationString scenario_text(scenario);
    BSTR name_raw = name_text.get();
    BSTR scenario_raw = scenario_text.get();
    EXPECT_EQ(task_->InitializeProperties(&name_raw, &scenario_raw, &language), S_OK);
  }
};

TEST_F(EarlyBoundClient, FindsANewObjectEmpty) {
  EXPECT_EQ(GetText(task_, &_ImpTable::get_Nom), L"");
  EXPECT_EQ(Get(task_, &_ImpTable::get_Regst), 0);
  EXPECT_EQ(GetText(task_, &_ImpTable::get_RegstCle), L"");
  EXPECT_EQ(Get(task_, &_ImpTable::get_Etat), 0);
  EXPECT_EQ(GetText(task_, &_ImpTable::get_Rapport), L"");
  EXPECT_EQ(GetText(task_, &_ImpTable::get_Scen), L"");
  EXPECT_EQ(Get(task_, &_ImpTable::get_Bouton), nullptr);
  EXPECT_EQ(Get(task_, &_ImpTable::GetStatus), 0) << "before any run";
}

TEST_F(EarlyBoundClient, GetsBackWhatItPutIntoEachProperty) {
  const struct {
    HRESULT (STDMETHODCALLTYPE _ImpTable::*put)(BSTR);
    HRESULT (STDMETHODCALLTYPE _ImpTable::*get)(BSTR*);
    const wchar_t* text;
  } texts[] = {
      {&_ImpTable::put_Nom, &_ImpTable::get_Nom, L"Clients \u00e9t\u00e9"},
      {&_ImpTable::put_RegstCle, &_ImpTable::get_RegstCle, L"SOFTWARE\\Tasks"},
      {&_ImpTable::put_Rapport, &_ImpTable::get_Rapport, L"C:\\report.txt"},
      {&_ImpTable::put_Scen, &_ImpTable::get_Scen, L"Nightly"},
  };
  for (const auto& each : texts) {
    const AutomationString text(each.text);
    EXPECT_EQ((task_.get()->*each.put)(text.get()), S_OK);
  }
  for (const auto& each : texts) EXPECT_EQ(GetText(task_, each.get), each.text);

  EXPECT_EQ(task_->put_Regst(kLocalMachine), S_OK);
  EXPECT_EQ(Get(task_, &_ImpTable::get_Regst), kLocalMachine);
  EXPECT_EQ(task_->put_Etat(-32768), S_OK);
  EXPECT_EQ(Get(task_, &_ImpTable::get_Etat), -32768);
  EXPECT_EQ(Get(task_, &_ImpTable::GetWorkingMode), -32768);
}

TEST_F(EarlyBoundClient, SetsEachPropertyByReferenceAndFindsItsArgumentsUnchanged) {
  const struct {
    HRESULT (STDMETHODCALLTYPE _ImpTable::*set)(BSTR*);
    HRESULT (STDMETHODCALLTYPE _ImpTable::*get)(BSTR*);
  } texts[] = {
      {&_ImpTable::SetName, &_ImpTable::get_Nom},
      {&_ImpTable::SetName, &_ImpTable::GetName},
      {&_ImpTable::SetRegistrySubKey, &_ImpTable::get_RegstCle},
      {&_ImpTable::SetReportFilePath, &_ImpTable::get_Rapport},
      {&_ImpTable::SetScenario, &_ImpTable::get_Scen},
  };
  for (const auto& each : texts) {
    const AutomationString text(L"a text");
    BSTR raw = text.get();
    EXPECT_EQ((task_.get()->*each.set)(&raw), S_OK);
    EXPECT_EQ(raw, text.get());
    EXPECT_EQ(text.view(), L"a text");
    EXPECT_EQ(GetText(task_, each.get), L"a text");
  }
  LONG root = kLocalMachine;
  EXPECT_EQ(task_->SetRegistryRoot(&root), S_OK);
  EXPECT_EQ(root, kLocalMachine);
  EXPECT_EQ(Get(task_, &_ImpTable::get_Regst), kLocalMachine);
  LONG mode = 32767;
  EXPECT_EQ(task_->SetWorkingMode(&mode), S_OK);
  EXPECT_EQ(mode, 32767);
  EXPECT_EQ(Get(task_, &_ImpTable::get_Etat), 32767);
}

TEST_F(EarlyBoundClient, PreparesATaskInOneCall) {
  Initialize(L"T1", L"S1", 10000);
  EXPECT_EQ(GetText(task_, &_ImpTable::get_Nom), L"T1");
  EXPECT_EQ(GetText(task_, &_ImpTable::get_Scen), L"S1");
  EXPECT_EQ(GetText(task_, &_ImpTable::get_RegstCle), L"SOFTWARE\\KALDO\\Scenarios\\S1\\Taches");
  EXPECT_EQ(Get(task_, &_ImpTable::get_Regst), kLocalMachine);
  EXPECT_EQ(Get(task_, &_ImpTable::get_Etat), 1);
  EXPECT_EQ(GetText(task_, &_ImpTable::GetTitle), L"Import Table");
}

TEST_F(EarlyBoundClient, HearsOfAWrapperOfType50ThatIsNoTrigger) {
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Get(task_, &_ImpTable::GetWrapperType), 50);
    EXPECT_EQ(Get(task_, &_ImpTable::IsTrigger), VARIANT_FALSE);
  }
  for (LONG type : {0L, 1L, 2L, 3L, 4L, -1L}) {
    const LONG asked = type;
    VARIANT_BOOL supported = 1;
    EXPECT_EQ(task_->IsActionSupported(&type, &supported), S_OK);
    EXPECT_EQ(supported, asked == 1 ? VARIANT_FALSE : VARIANT_TRUE) << asked;
    EXPECT_EQ(type, asked);
  }
}

TEST_F(EarlyBoundClient, GetsTextsInTheLanguageThatIsSet) {
  Initialize(L"T1", L"no such scenario", 0);
  EXPECT_EQ(GetText(task_, &_ImpTable::GetTitle), L"Importation Table");
  EXPECT_EQ(GetText(task_, &_ImpTable::GetSummary),
            L"Importe un fichier texte dans une table d'une source de donn\u00e9es ODBC.");
  LONG english = 10000;
  EXPECT_EQ(task_->SetLanguage(&english), S_OK);
  EXPECT_EQ(english, 10000);
  EXPECT_EQ(GetText(task_, &_ImpTable::GetSummary),
            L"Imports a text file into a table of an ODBC data source.");
  EXPECT_NE(GetText(task_, &_ImpTable::GetTaskDescription).find(L"T1"), std::wstring::npos);
  EXPECT_EQ(GetText(task_, &_ImpTable::GetActions), L"");
}

TEST_F(EarlyBoundClient, GetsBackTheObjectThatItGaveAsBouton) {
  const auto sink = ComPointer<Sink>(new Sink);
  EXPECT_EQ(task_->putref_Bouton(sink.get()), S_OK);
  EXPECT_GT(sink->references(), 1U) << "the object has a reference of its own";
  ComPointer<IDispatch> back;
  EXPECT_EQ(task_->get_Bouton(back.Receive()), S_OK);
  EXPECT_EQ(back.get(), sink.get());
  back = {};
  EXPECT_EQ(task_->putref_Bouton(nullptr), S_OK);
  EXPECT_EQ(sink->references(), 1U);
  EXPECT_EQ(Get(task_, &_ImpTable::get_Bouton), nullptr);

  EXPECT_EQ(task_->putref_Bouton(sink.get()), S_OK);
  task_ = {};
  EXPECT_EQ(sink->references(), 1U) << "after the task has gone";
}

TEST_F(EarlyBoundClient, GetsThePictureOfTheWrapper) {
  ComPointer<IPictureDisp> picture;
  ASSERT_EQ(task_->GetPicture(picture.Receive()), S_OK);
  const auto drawn = Query<IPicture>(picture.get());
  ASSERT_TRUE(drawn);
  SHORT type = 0;
  OLE_HANDLE handle = 0;
  EXPECT_EQ(drawn->get_Type(&type), S_OK);
  EXPECT_EQ(type, PICTYPE_BITMAP);
  EXPECT_EQ(drawn->get_Handle(&handle), S_OK);
  BITMAP bitmap{};
  const auto raw = reinterpret_cast<HBITMAP>(static_cast<std::uintptr_t>(handle));
  ASSERT_NE(GetObjectW(raw, sizeof(bitmap), &bitmap), 0);
  EXPECT_EQ(bitmap.bmWidth, 32);
  EXPECT_EQ(bitmap.bmHeight, 32);
  task_ = {};
  EXPECT_NE(GetObjectW(raw, sizeof(bitmap), &bitmap), 0) << "the picture outlives the task";
}

TEST_F(EarlyBoundClient, IsToldOfAnOverflowAndFindsTheModeUnchanged) {
  EXPECT_EQ(task_->put_Etat(7), S_OK);
  for (LONG mode : {32768L, -32769L, std::numeric_limits<LONG>::max()}) {
    const HRESULT result = task_->SetWorkingMode(&mode);
    EXPECT_EQ(result, static_cast<HRESULT>(0x800A0006));
    const ErrorInformation error = TakeErrorInformation();
    EXPECT_EQ(error.source, L"SQLTImpT.ImpTable");
    EXPECT_EQ(error.description, L"D\u00e9passement de capacit\u00e9 : " + std::to_wstring(mode));
    EXPECT_EQ(error.interface_id, IID__ImpTable);
    EXPECT_EQ(Get(task_, &_ImpTable::get_Etat), 7);
  }
  Initialize(L"T1", L"S1", 10000);
  LONG mode = 32768;
  EXPECT_EQ(task_->SetWorkingMode(&mode), static_cast<HRESULT>(0x800A0006));
  EXPECT_EQ(TakeErrorInformation().description, L"Overflow : 32768");
  EXPECT_EQ(Get(task_, &_ImpTable::get_Etat), 1);
}

TEST_F(EarlyBoundClient, IsToldOfALanguageThatHasNoTexts) {
  LONG language = 5;
  EXPECT_EQ(task_->SetLanguage(&language), S_OK);
  AutomationString text;
  EXPECT_EQ(task_->GetTaskDescription(text.Receive()), static_cast<HRESULT>(0x800A0000 | 326));
  EXPECT_EQ(text.get(), nullptr);
  EXPECT_EQ(TakeErrorInformation().description.substr(0, 21), L"Ressource introuvable");
  language = 0;
  EXPECT_EQ(task_->SetLanguage(&language), S_OK);
  EXPECT_EQ(task_->GetTaskDescription(text.Receive()), S_OK) << "the object stays usable";
}

TEST_F(EarlyBoundClient, FindsNoErrorInformationOfAnEarlierCallAfterOneThatWorks) {
  LONG mode = 32768;
  EXPECT_NE(task_->SetWorkingMode(&mode), S_OK);
  EXPECT_EQ(task_->put_Etat(0), S_OK);
  EXPECT_EQ(TakeErrorInformation().description, L"");
}

TEST_F(EarlyBoundClient, KnowsWhichInterfacesGiveErrorInformation) {
  const auto support = Query<ISupportErrorInfo>(task_.get());
  ASSERT_TRUE(support);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__ImpTable), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IConnectionPoint), S_FALSE);
}

TEST_F(EarlyBoundClient, GetsAPointerErrorForEachNullPointer) {
  const AutomationString text(L"text");
  BSTR string = text.get();
  LONG number = 1;
  VARIANT_BOOL flag = 1;
  task_->put_Nom(text.get());
  const HRESULT results[] = {
      task_->get_Nom(nullptr),
      task_->get_Regst(nullptr),
      task_->get_RegstCle(nullptr),
      task_->get_Etat(nullptr),
      task_->get_Rapport(nullptr),
      task_->get_Scen(nullptr),
      task_->get_Bouton(nullptr),
      task_->GetTaskDescription(nullptr),
      task_->Affiche(nullptr),
      task_->IsTrigger(nullptr),
      task_->IsActionSupported(nullptr, &flag),
      task_->IsActionSupported(&number, nullptr),
      task_->ShowWrapper(nullptr),
      task_->GetPicture(nullptr),
      task_->GetStatus(nullptr),
      task_->GetSummary(nullptr),
      task_->GetTitle(nullptr),
      task_->GetWrapperType(nullptr),
      task_->GetActions(nullptr),
      task_->GetWorkingMode(nullptr),
      task_->GetName(nullptr),
      task_->SetLanguage(nullptr),
      task_->SetName(nullptr),
      task_->SetRegistryRoot(nullptr),
      task_->SetRegistrySubKey(nullptr),
      task_->SetReportFilePath(nullptr),
      task_->SetScenario(nullptr),
      task_->SetWorkingMode(nullptr),
      task_->InitializeProperties(nullptr, &string, &number),
      task_->InitializeProperties(&string, nullptr, &number),
      task_->InitializeProperties(&string, &string, nullptr),
      task_->QueryInterface(IID_IUnknown, nullptr),
      task_->GetTypeInfoCount(nullptr),
      task_->GetTypeInfo(0, 0, nullptr),
  };
  EXPECT_THAT(results, testing::Each(E_POINTER));
  EXPECT_EQ(GetText(task_, &_ImpTable::get_Nom), L"text");
}

TEST_F(EarlyBoundClient, MayPassANullStringForAnEmptyOne) {
  const AutomationString text(L"text");
  task_->put_Nom(text.get());
  EXPECT_EQ(task_->put_Nom(nullptr), S_OK);
  EXPECT_EQ(GetText(task_, &_ImpTable::get_Nom), L"");
  BSTR null = nullptr;
  LONG language = 0;
  EXPECT_EQ(task_->InitializeProperties(&null, &null, &language), S_OK);
  EXPECT_EQ(GetText(task_, &_ImpTable::get_RegstCle), L"SOFTWARE\\KALDO\\Scenarios\\\\Taches");
}

TEST_F(EarlyBoundClient, MayUseTextsWithNulsInside) {
  using namespace std::string_view_literals;
  const AutomationString text(L"a\0b"sv);
  EXPECT_EQ(task_->put_Nom(text.get()), S_OK);
  EXPECT_EQ(GetText(task_, &_ImpTable::get_Nom), L"a\0b"sv);
  BSTR raw = text.get();
  LONG language = 0;
  EXPECT_EQ(task_->InitializeProperties(&raw, &raw, &language), S_OK);
  EXPECT_EQ(GetText(task_, &_ImpTable::get_RegstCle),
            L"SOFTWARE\\KALDO\\Scenarios\\a\0b\\Taches"sv);

  const TaskKeys keys;
  const std::wstring name(L"a\0b"sv);
  keys.MakeUnreachable(task_, name);
  EXPECT_EQ(task_->ExecuteTache(), S_OK);
  EXPECT_EQ(Get(task_, &_ImpTable::GetStatus), 3);
  EXPECT_NE(GetText(task_, &_ImpTable::GetTaskDescription), L"");
}

TEST_F(EarlyBoundClient, GetsAQuestionMarkForACharacterThatTheCodePageLacks) {
  if (GetACP() != 1252) GTEST_SKIP() << "the system's code page is " << GetACP();
  const AutomationString text(L"\u4e2d\u0101\u20ac");
  EXPECT_EQ(task_->put_Nom(text.get()), S_OK);
  EXPECT_EQ(GetText(task_, &_ImpTable::get_Nom), L"??\u20ac");
}

TEST_F(EarlyBoundClient, FindsItsFloatingPointControlAsItWas) {
  constexpr unsigned kPrecisionRoundingAndDivisionByZero = 0x0F04;
  constexpr unsigned kSinglePrecisionRoundUpAndFault = 0x0800;
  constexpr unsigned kDefault = 0x0304;
  const auto sink = ComPointer<Sink>(new Sink);
  fenv_t within{};
  sink->on_event = [&](DISPID) {
    fegetenv(&within);
    return S_OK;
  };
  DWORD cookie = 0;
  ASSERT_EQ(EventsOf(task_.get())->Advise(sink.get(), &cookie), S_OK);

  fenv_t before;
  fegetenv(&before);
  fenv_t own = before;
  own.__control_word =
      static_cast<unsigned short>((own.__control_word & ~kPrecisionRoundingAndDivisionByZero) |
                                  kSinglePrecisionRoundUpAndFault);
  fesetenv(&own);
  const HRESULT run = task_->put_Run(0);
  fenv_t after;
  fegetenv(&after);
  fesetenv(&before);
  EXPECT_EQ(run, S_OK);
  EXPECT_EQ(after.__control_word, own.__control_word);
  EXPECT_EQ(within.__control_word & kPrecisionRoundingAndDivisionByZero, kDefault);
}

TEST_F(EarlyBoundClient, GetsOneIdentityThroughEveryInterface) {
  const auto identity = Query<IUnknown>(task_.get());
  for (const IID& iid : {IID_IDispatch, IID__ImpTable, IID_ISupportErrorInfo, IID_IProvideClassInfo,
                         IID_IProvideClassInfo2, IID_IConnectionPointContainer}) {
    const auto other = Query<IUnknown>(task_.get(), iid);
    ASSERT_TRUE(other);
    EXPECT_EQ(Query<IUnknown>(other.get()).get(), identity.get());
    EXPECT_TRUE(Query<_ImpTable>(other.get()));
  }
  void* none = this;
  EXPECT_EQ(task_->QueryInterface(IID_IPersist, &none), E_NOINTERFACE);
  EXPECT_EQ(none, nullptr);
}

TEST_F(EarlyBoundClient, LearnsTheClassAndItsEventsFromTheObject) {
  const auto provider = Query<IProvideClassInfo2>(task_.get());
  ASSERT_TRUE(provider);
  ComPointer<ITypeInfo> info;
  ASSERT_EQ(provider->GetClassInfo(info.Receive()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->guid, CLSID_ImpTable);
  info->ReleaseTypeAttr(attributes);
  GUID events{};
  EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
  EXPECT_EQ(events, DIID___ImpTable);
  EXPECT_EQ(provider->GetGUID(2, &events), E_INVALIDARG);
  EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr), E_POINTER);
  EXPECT_EQ(provider->GetClassInfo(nullptr), E_POINTER);
}

}  // namespace
}  // namespace imptable
