// A client that knows the members by name alone, as script hosts do.

#include <gmock/gmock.h>

#include <array>

#include "tests/win32/component/ClassesSandbox.h"
#include "tests/win32/component/Client.h"

namespace imptable {
namespace {

constexpr HRESULT kOverflow = static_cast<HRESULT>(0x800A0006);

class LateBoundClient : public Client {
 protected:
  HRESULT Put(const wchar_t* name, Arguments& value, WORD flags = DISPATCH_PROPERTYPUT) {
    return Call(task_.get(), name, value, flags).result;
  }
  std::wstring Read(const wchar_t* name) { return Call(task_.get(), name).text; }
};

TEST_F(LateBoundClient, PutsAndGetsEveryProperty) {
  EXPECT_EQ(Put(L"Nom", Arguments().Text(L"T1")), S_OK);
  EXPECT_EQ(Put(L"Regst", Arguments().Number(5)), S_OK);
  EXPECT_EQ(Put(L"RegstCle", Arguments().Text(L"KEY")), S_OK);
  EXPECT_EQ(Put(L"Etat", Arguments().Short(3)), S_OK);
  EXPECT_EQ(Put(L"Rapport", Arguments().Text(L"R")), S_OK);
  EXPECT_EQ(Put(L"Scen", Arguments().Text(L"S1")), S_OK);
  EXPECT_EQ(Read(L"Nom"), L"T1");
  EXPECT_EQ(Read(L"Regst"), L"5");
  EXPECT_EQ(Read(L"RegstCle"), L"KEY");
  EXPECT_EQ(Read(L"Etat"), L"3");
  EXPECT_EQ(Read(L"Rapport"), L"R");
  EXPECT_EQ(Read(L"Scen"), L"S1");
}

TEST_F(LateBoundClient, FindsMembersWithoutRegardToCase) {
  EXPECT_EQ(Put(L"NOM", Arguments().Text(L"T1")), S_OK);
  EXPECT_EQ(Read(L"getname"), L"T1");
}

TEST_F(LateBoundClient, GetsEachResultInItsOwnType) {
  EXPECT_EQ(Call(task_.get(), L"GetWrapperType").type, VT_I4);
  EXPECT_EQ(Call(task_.get(), L"Etat").type, VT_I2);
  EXPECT_EQ(Call(task_.get(), L"IsTrigger").type, VT_BOOL);
  EXPECT_EQ(Call(task_.get(), L"GetTitle").type, VT_BSTR);
  EXPECT_EQ(Call(task_.get(), L"Bouton").type, VT_DISPATCH);
  EXPECT_EQ(Call(task_.get(), L"GetPicture").type, VT_DISPATCH);
  EXPECT_EQ(Call(task_.get(), L"ExecuteTache").type, VT_EMPTY);
}

TEST_F(LateBoundClient, MayPassByReferenceOrByValueWhateverConverts) {
  LONG number = 10000;
  VARIANT inner;
  VariantInit(&inner);
  V_VT(&inner) = VT_I2;
  V_I2(&inner) = 10000;
  short small = 10000;
  EXPECT_EQ(Call(task_.get(), L"SetLanguage", Arguments().NumberAt(&number)).result, S_OK);
  EXPECT_EQ(Read(L"GetTitle"), L"Import Table");
  const auto set_back = [this] {
    ASSERT_EQ(Call(task_.get(), L"SetLanguage", Arguments().Number(0)).result, S_OK);
    ASSERT_EQ(Read(L"GetTitle"), L"Importation Table");
  };
  set_back();
  EXPECT_EQ(Call(task_.get(), L"SetLanguage", Arguments().Short(10000)).result, S_OK);
  EXPECT_EQ(Read(L"GetTitle"), L"Import Table");
  set_back();
  EXPECT_EQ(Call(task_.get(), L"SetLanguage", Arguments().VariantAt(&inner)).result, S_OK);
  EXPECT_EQ(Read(L"GetTitle"), L"Import Table");
  set_back();
  EXPECT_EQ(Call(task_.get(), L"SetLanguage", Arguments().Text(L"10000")).result, S_OK);
  EXPECT_EQ(Read(L"GetTitle"), L"Import Table");
  set_back();
  EXPECT_EQ(Call(task_.get(), L"SetLanguage", Arguments().Raw(VT_I2 | VT_BYREF, &small)).result,
            S_OK);
  EXPECT_EQ(Read(L"GetTitle"), L"Import Table");
  set_back();
  EXPECT_EQ(Call(task_.get(), L"SetLanguage", Arguments().Double(9999.6)).result, S_OK);
  EXPECT_EQ(Read(L"GetTitle"), L"Import Table");
  EXPECT_EQ(number, 10000);
  EXPECT_EQ(V_VT(&inner), VT_I2);
}

TEST_F(LateBoundClient, PassesSeveralArgumentsInTheirOrder) {
  EXPECT_EQ(
      Call(task_.get(), L"InitializeProperties", Arguments().Text(L"T1").Text(L"S1").Short(10000))
          .result,
      S_OK);
  EXPECT_EQ(Read(L"Nom"), L"T1");
  EXPECT_EQ(Read(L"Scen"), L"S1");
  EXPECT_EQ(Read(L"GetTitle"), L"Import Table");
}

TEST_F(LateBoundClient, MayNameItsArguments) {
  std::array<wchar_t*, 4> names{};
  std::array<std::wstring, 4> texts{L"InitializeProperties", L"lngLanguage", L"strScenario",
                                    L"strName"};
  for (std::size_t i = 0; i < names.size(); ++i) names[i] = texts[i].data();
  std::array<DISPID, 4> ids{};
  ASSERT_EQ(task_->GetIDsOfNames(IID_NULL, names.data(), names.size(), 0, ids.data()), S_OK);
  Arguments arguments;
  arguments.Text(L"T1").Text(L"S1").Number(10000);
  DISPPARAMS parameters{arguments.reversed().data(), ids.data() + 1, 3, 3};
  EXPECT_EQ(
      task_->Invoke(ids[0], IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
      S_OK);
  EXPECT_EQ(Read(L"Nom"), L"T1");
  EXPECT_EQ(Read(L"Scen"), L"S1");

  ids[2] = ids[1];
  UINT wrong = 99;
  EXPECT_EQ(
      task_->Invoke(ids[0], IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, &wrong),
      DISP_E_PARAMNOTFOUND)
      << "one argument twice";
  EXPECT_EQ(wrong, 1U);
  ids[2] = 17;
  EXPECT_EQ(
      task_->Invoke(ids[0], IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, &wrong),
      DISP_E_PARAMNOTFOUND)
      << "an argument that isn't there";
}

TEST_F(LateBoundClient, SetsBoutonByReferenceOnly) {
  const auto sink = ComPointer<Sink>(new Sink);
  EXPECT_EQ(Put(L"Bouton", Arguments().Object(sink.get()), DISPATCH_PROPERTYPUTREF), S_OK);
  EXPECT_EQ(Get(task_, &_ImpTable::get_Bouton), sink.get());
  sink->Release();
  EXPECT_EQ(Put(L"Bouton", Arguments().Object(nullptr), DISPATCH_PROPERTYPUTREF), S_OK);
  EXPECT_EQ(sink->references(), 1U);
  EXPECT_EQ(Put(L"Bouton", Arguments().Object(sink.get())), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(Put(L"Bouton", Arguments().Number(1), DISPATCH_PROPERTYPUTREF), DISP_E_TYPEMISMATCH);
}

TEST_F(LateBoundClient, CanOnlyWriteRun) {
  EXPECT_EQ(Put(L"Run", Arguments().Short(0)), S_OK);
  EXPECT_EQ(Call(task_.get(), L"Run").result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(LateBoundClient, IsToldOfAFaultByItsNumberItsTextAndItsSource) {
  const Outcome outcome = Call(task_.get(), L"SetWorkingMode", Arguments().Number(32768));
  EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
  EXPECT_EQ(outcome.fault, kOverflow);
  EXPECT_EQ(outcome.source, L"SQLTImpT.ImpTable");
  EXPECT_EQ(outcome.description, L"D\u00e9passement de capacit\u00e9 : 32768");
  EXPECT_EQ(Read(L"Etat"), L"0");
}

TEST_F(LateBoundClient, IsToldOfANumberThatDoesNotFitItsArgument) {
  const Outcome outcome = Call(task_.get(), L"RunT", Arguments().Number(32768));
  EXPECT_EQ(outcome.result, DISP_E_OVERFLOW);
  EXPECT_EQ(outcome.wrong_argument, 0U);
  EXPECT_EQ(Call(task_.get(), L"SetWorkingMode", Arguments().Double(3e9)).result, DISP_E_OVERFLOW);
}

TEST_F(LateBoundClient, IsToldWhichArgumentHasAWrongType) {
  const Outcome last = Call(task_.get(), L"InitializeProperties",
                            Arguments().Text(L"T1").Text(L"S1").Text(L"English"));
  EXPECT_EQ(last.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(last.wrong_argument, 0U);
  const Outcome first =
      Call(task_.get(), L"InitializeProperties", Arguments().Null().Text(L"S1").Number(0));
  EXPECT_EQ(first.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(first.wrong_argument, 2U);
  EXPECT_EQ(Read(L"Nom"), L"");
  EXPECT_EQ(Call(task_.get(), L"SetName", Arguments().Raw(VT_ARRAY | VT_I4, nullptr)).result,
            DISP_E_TYPEMISMATCH);
  EXPECT_THAT(Call(task_.get(), L"SetLanguage", Arguments().Object(nullptr)).result,
              testing::AnyOf(DISP_E_TYPEMISMATCH, DISP_E_BADVARTYPE))
      << "systems differ";
}

TEST_F(LateBoundClient, IsToldOfBadVariants) {
  EXPECT_EQ(Call(task_.get(), L"SetLanguage", Arguments().VariantAt(nullptr)).result,
            DISP_E_BADVARTYPE);
  EXPECT_EQ(Call(task_.get(), L"SetLanguage", Arguments().Raw(VT_I2 | VT_BYREF, nullptr)).result,
            DISP_E_BADVARTYPE);
  EXPECT_EQ(Call(task_.get(), L"SetLanguage", Arguments().Raw(0x0FFF, nullptr)).result,
            DISP_E_BADVARTYPE);
  VARIANT self;
  V_VT(&self) = VT_VARIANT | VT_BYREF;
  V_VARIANTREF(&self) = &self;
  EXPECT_EQ(Call(task_.get(), L"SetLanguage", Arguments().VariantAt(&self)).result,
            DISP_E_BADVARTYPE);
}

TEST_F(LateBoundClient, IsToldOfANullPointerAndNotOfAnEarlierFault) {
  LONG mode = 32768;
  ASSERT_NE(task_->SetWorkingMode(&mode), S_OK);
  const Outcome outcome = Call(task_.get(), L"SetLanguage", Arguments().NumberAt(nullptr));
  EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
  EXPECT_EQ(outcome.fault, E_POINTER);
  EXPECT_EQ(outcome.description, L"");
}

TEST_F(LateBoundClient, NeedsNothingThatIsRegistered) {
  const SandboxKey empty(L"classes");
  const ClassesRoot classes(empty.get());
  const ComponentDll dll;
  const ComPointer<_ImpTable> task = dll.NewTask();
  EXPECT_EQ(Call(task.get(), L"SetLanguage", Arguments().Number(10000)).result, S_OK);
  EXPECT_EQ(Call(task.get(), L"GetTitle").text, L"Import Table");
  EXPECT_EQ(Call(task.get(), L"GetPicture").type, VT_DISPATCH);
}

TEST_F(LateBoundClient, MayReleaseTheTaskWhileItsArgumentIsAskedForItsValue) {
  const auto argument = ComPointer<Sink>(new Sink);
  argument->on_event = [&](DISPID id) {
    EXPECT_EQ(id, DISPID_VALUE);
    task_ = {};
    return S_OK;
  };
  EXPECT_EQ(Call(task_.get(), L"SetLanguage", Arguments().Object(argument.get())).result, S_OK);
  EXPECT_FALSE(task_);
  EXPECT_TRUE(dll_.CanUnloadNow());
}

TEST_F(LateBoundClient, IsToldOfAWrongNumberOfArguments) {
  EXPECT_EQ(Call(task_.get(), L"SetName").result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Call(task_.get(), L"GetName", Arguments().Number(1)).result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Call(task_.get(), L"ExecuteTache", Arguments().Number(1)).result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Call(task_.get(), L"SetName", Arguments().Text(L"a").Text(L"b")).result,
            DISP_E_BADPARAMCOUNT);
  Arguments none;
  EXPECT_EQ(Call(task_.get(), L"Nom", none, DISPATCH_PROPERTYPUT).result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Call(task_.get(), L"SetName", Arguments().Missing()).result, DISP_E_PARAMNOTOPTIONAL);
}

TEST_F(LateBoundClient, IsToldOfMembersThatAreNotThere) {
  EXPECT_EQ(Call(task_.get(), L"Import").result, DISP_E_UNKNOWNNAME);
  DISPPARAMS none{};
  for (const DISPID id : {0L, 1L, 0x40030007L, 0x60030000L, -4L}) {
    EXPECT_EQ(task_->Invoke(id, IID_NULL, 0, kCall, &none, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND)
        << id;
  }
  EXPECT_EQ(task_->Invoke(0x60030013, IID_NULL, 0, 0, &none, nullptr, nullptr, nullptr),
            DISP_E_MEMBERNOTFOUND)
      << "in no way of calling";
}

TEST_F(LateBoundClient, CannotReachTheMembersThatEveryInterfaceHas) {
  DISPPARAMS none{};
  for (DISPID id = 0x60000000; id < 0x60000003; ++id) {
    EXPECT_EQ(task_->Invoke(id, IID_NULL, 0, kCall, &none, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
  }
  for (DISPID id = 0x60010000; id < 0x60010004; ++id) {
    EXPECT_EQ(task_->Invoke(id, IID_NULL, 0, kCall, &none, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
  }
}

TEST_F(LateBoundClient, IsToldOfCallsThatMakeNoSense) {
  DISPPARAMS none{};
  constexpr DISPID kGetName = 0x60030013;
  EXPECT_EQ(task_->Invoke(kGetName, IID_IUnknown, 0, kCall, &none, nullptr, nullptr, nullptr),
            DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(task_->Invoke(kGetName, IID_NULL, 0, kCall, nullptr, nullptr, nullptr, nullptr),
            E_INVALIDARG);
  DISPPARAMS broken{nullptr, nullptr, 1, 0};
  EXPECT_EQ(task_->Invoke(kGetName, IID_NULL, 0, kCall, &broken, nullptr, nullptr, nullptr),
            E_INVALIDARG);
  DISPPARAMS unnamed{nullptr, nullptr, 0, 1};
  EXPECT_EQ(task_->Invoke(kGetName, IID_NULL, 0, kCall, &unnamed, nullptr, nullptr, nullptr),
            E_INVALIDARG);
  EXPECT_EQ(task_->Invoke(kGetName, IID_NULL, 0, kCall, &none, nullptr, nullptr, nullptr), S_OK)
      << "a result that nobody wants";
  EXPECT_EQ(task_->Invoke(0x6003001a, IID_NULL, 0, kCall, &none, nullptr, nullptr, nullptr),
            DISP_E_BADPARAMCOUNT);
}

TEST_F(LateBoundClient, IsToldOfLookupsThatMakeNoSense) {
  std::wstring known(L"Nom");
  std::wstring unknown(L"Import");
  std::array<LPOLESTR, 2> names{unknown.data(), known.data()};
  std::array<DISPID, 2> ids{7, 7};
  EXPECT_EQ(task_->GetIDsOfNames(IID_NULL, names.data(), 1, 0, ids.data()), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[0], DISPID_UNKNOWN);
  EXPECT_EQ(task_->GetIDsOfNames(IID_IUnknown, names.data(), 1, 0, ids.data()),
            DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(task_->GetIDsOfNames(IID_NULL, nullptr, 1, 0, ids.data()), E_POINTER);
  EXPECT_EQ(task_->GetIDsOfNames(IID_NULL, names.data(), 1, 0, nullptr), E_POINTER);
  EXPECT_EQ(task_->GetIDsOfNames(IID_NULL, names.data(), 0, 0, ids.data()), E_INVALIDARG);
  names[0] = nullptr;
  EXPECT_EQ(task_->GetIDsOfNames(IID_NULL, names.data(), 1, 0, ids.data()), E_POINTER);
  names[0] = known.data();
  names[1] = unknown.data();
  EXPECT_EQ(task_->GetIDsOfNames(IID_NULL, names.data(), 2, 0, ids.data()), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[0], 0x40030000);
  EXPECT_EQ(ids[1], DISPID_UNKNOWN);
}

TEST_F(LateBoundClient, GetsTheInterfacesDescription) {
  UINT count = 0;
  EXPECT_EQ(task_->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1U);
  ComPointer<ITypeInfo> info;
  ASSERT_EQ(task_->GetTypeInfo(0, 0, info.Receive()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->guid, IID__ImpTable);
  info->ReleaseTypeAttr(attributes);
  EXPECT_EQ(task_->GetTypeInfo(1, 0, info.Receive()), DISP_E_BADINDEX);
}

}  // namespace
}  // namespace imptable
