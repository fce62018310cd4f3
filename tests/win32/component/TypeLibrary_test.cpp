// The contract as clients read it: the type library within the DLL.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "automation/AutomationText.h"
#include "tests/win32/component/ComponentDll.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

class TypeLibrary : public testing::Test {
 protected:
  TypeLibrary() {
    EXPECT_EQ(LoadTypeLibEx(ComponentDll::Path().c_str(), REGKIND_NONE, library_.Receive()), S_OK);
  }

  ComPointer<ITypeInfo> Type(UINT index) const {
    ComPointer<ITypeInfo> info;
    EXPECT_EQ(library_->GetTypeInfo(index, info.Receive()), S_OK);
    return info;
  }

  ComPointer<ITypeLib> library_;
};

std::string NameOf(ITypeInfo& info) {
  AutomationString name;
  info.GetDocumentation(MEMBERID_NIL, name.Receive(), nullptr, nullptr, nullptr);
  return FromAutomation(name.get());
}

std::string TextOf(REFGUID guid) {
  std::array<wchar_t, 39> text{};
  StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
  return FromWide(text.data());
}

struct Attributes {
  TYPEKIND kind;
  std::string guid;
  int flags;
  int functions;
};

Attributes AttributesOf(ITypeInfo& info) {
  TYPEATTR* raw = nullptr;
  if (FAILED(info.GetTypeAttr(&raw))) return {};
  const Attributes result{raw->typekind, TextOf(raw->guid), raw->wTypeFlags, raw->cFuncs};
  info.ReleaseTypeAttr(raw);
  return result;
}

std::string TypeText(ITypeInfo& info, const TYPEDESC& type) {
  switch (type.vt) {
    case VT_I2:
      return "short";
    case VT_I4:
      return "long";
    case VT_BOOL:
      return "VARIANT_BOOL";
    case VT_BSTR:
      return "BSTR";
    case VT_DISPATCH:
      return "IDispatch*";
    case VT_HRESULT:
      return "HRESULT";
    case VT_VOID:
      return "void";
    case VT_PTR:
      return TypeText(info, *type.lptdesc) + '*';
    case VT_USERDEFINED: {
      ComPointer<ITypeInfo> referred;
      if (FAILED(info.GetRefTypeInfo(type.hreftype, referred.Receive()))) return "?";
      return AttributesOf(*referred.get()).guid;
    }
    default:
      return "type " + std::to_string(type.vt);
  }
}

/// "id kind result name(flags type name, ...)"
std::string FunctionText(ITypeInfo& info, UINT index) {
  FUNCDESC* function = nullptr;
  if (FAILED(info.GetFuncDesc(index, &function))) return "none";
  std::array<BSTR, 8> names{};
  UINT count = 0;
  info.GetNames(function->memid, names.data(), names.size(), &count);
  std::array<char, 12> id{};
  std::snprintf(id.data(), id.size(), "%08lx ", static_cast<unsigned long>(function->memid));
  std::string text = id.data();
  switch (function->invkind) {
    case INVOKE_FUNC:
      break;
    case INVOKE_PROPERTYGET:
      text += "get ";
      break;
    case INVOKE_PROPERTYPUT:
      text += "put ";
      break;
    case INVOKE_PROPERTYPUTREF:
      text += "putref ";
      break;
  }
  text += TypeText(info, function->elemdescFunc.tdesc) + ' ' + FromAutomation(names[0]) + '(';
  for (SHORT i = 0; i < function->cParams; ++i) {
    const ELEMDESC& parameter = function->lprgelemdescParam[i];
    const USHORT flags = parameter.paramdesc.wParamFlags;
    if (i > 0) text += ", ";
    if ((flags & PARAMFLAG_FIN) != 0) text += "in ";
    if ((flags & PARAMFLAG_FOUT) != 0) text += "out ";
    if ((flags & PARAMFLAG_FRETVAL) != 0) text += "retval ";
    if ((flags & ~(PARAMFLAG_FIN | PARAMFLAG_FOUT | PARAMFLAG_FRETVAL)) != 0) text += "more ";
    text += TypeText(info, parameter.tdesc);
    // A returned value and a property's value have no name that a client could use.
    if (function->invkind == INVOKE_FUNC && (flags & PARAMFLAG_FRETVAL) == 0) {
      text += ' ' + FromAutomation(names[static_cast<std::size_t>(i) + 1]);
    }
  }
  text += ')';
  if (function->wFuncFlags != 0) text += " flags " + std::to_string(function->wFuncFlags);
  for (BSTR name : names) SysFreeString(name);
  info.ReleaseFuncDesc(function);
  return text;
}

std::vector<std::string> FunctionTexts(ITypeInfo& info) {
  std::vector<std::string> texts;
  for (int i = 0; i < AttributesOf(info).functions; ++i) {
    texts.push_back(FunctionText(info, static_cast<UINT>(i)));
  }
  return texts;
}

TEST_F(TypeLibrary, IsCalledSQLTImpTAndHasItsVersionLanguageAndHelpText) {
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(library_->GetLibAttr(&attributes), S_OK);
  EXPECT_EQ(TextOf(attributes->guid), "{9EC27E03-040E-4456-BAD6-67BCCCDD90CA}");
  EXPECT_EQ(attributes->wMajorVerNum, 2);
  EXPECT_EQ(attributes->wMinorVerNum, 1);
  EXPECT_EQ(attributes->lcid, 0x409U);
  EXPECT_EQ(attributes->syskind, SYS_WIN32);
  library_->ReleaseTLibAttr(attributes);

  AutomationString name;
  AutomationString help;
  ASSERT_EQ(library_->GetDocumentation(-1, name.Receive(), help.Receive(), nullptr, nullptr), S_OK);
  EXPECT_EQ(name.view(), L"SQLTImpT");
  EXPECT_EQ(help.view(), L"KALDO 6.0 ( ImpT )");
}

TEST_F(TypeLibrary, HoldsTheTwoInterfacesAndTheClass) {
  ASSERT_EQ(library_->GetTypeInfoCount(), 3U);
  EXPECT_EQ(NameOf(*Type(0).get()), "_ImpTable");
  EXPECT_EQ(NameOf(*Type(1).get()), "__ImpTable");
  EXPECT_EQ(NameOf(*Type(2).get()), "ImpTable");
}

TEST_F(TypeLibrary, HasAHiddenEventInterfaceThatCannotBeExtendedWithTwoEvents) {
  const ComPointer<ITypeInfo> events = Type(1);
  const Attributes attributes = AttributesOf(*events.get());
  EXPECT_EQ(attributes.kind, TKIND_DISPATCH);
  EXPECT_EQ(attributes.guid, "{3E2DC9A8-2AEE-45E3-A21D-A59EAE77E12A}");
  EXPECT_EQ(attributes.flags, TYPEFLAG_FHIDDEN | TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FDISPATCHABLE);
  EXPECT_THAT(FunctionTexts(*events.get()),
              ElementsAre("00000001 void Progress()", "00000002 void Complete()"));
}

TEST_F(TypeLibrary, HasAClassThatCanBeCreatedWithItsDefaultInterfaceAndEvents) {
  const ComPointer<ITypeInfo> type = Type(2);
  const Attributes attributes = AttributesOf(*type.get());
  EXPECT_EQ(attributes.kind, TKIND_COCLASS);
  EXPECT_EQ(attributes.guid, "{0869CA47-B2E8-40B3-9ED1-77DC977C7E3E}");
  EXPECT_EQ(attributes.flags, TYPEFLAG_FCANCREATE);

  std::vector<std::string> implemented;
  for (UINT i = 0; i < 2; ++i) {
    HREFTYPE reference = 0;
    INT flags = 0;
    ComPointer<ITypeInfo> referred;
    ASSERT_EQ(type->GetRefTypeOfImplType(i, &reference), S_OK);
    ASSERT_EQ(type->GetImplTypeFlags(i, &flags), S_OK);
    ASSERT_EQ(type->GetRefTypeInfo(reference, referred.Receive()), S_OK);
    implemented.push_back(NameOf(*referred.get()) + ' ' + std::to_string(flags));
  }
  const int source = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
  EXPECT_THAT(implemented, ElementsAre("_ImpTable " + std::to_string(IMPLTYPEFLAG_FDEFAULT),
                                       "__ImpTable " + std::to_string(source)));
}

class DualInterface : public TypeLibrary {
 protected:
  /// The interface as its virtual table has it.
  ComPointer<ITypeInfo> VirtualTable() const {
    const ComPointer<ITypeInfo> type = Type(0);
    HREFTYPE reference = 0;
    ComPointer<ITypeInfo> table;
    EXPECT_EQ(type->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    EXPECT_EQ(type->GetRefTypeInfo(reference, table.Receive()), S_OK);
    return table;
  }
};

// From the contract, member by member: never change.
constexpr std::array kMembers{
    "40030000 get HRESULT Nom(out retval BSTR*)",
    "40030000 put HRESULT Nom(in BSTR)",
    "40030001 get HRESULT Regst(out retval long*)",
    "40030001 put HRESULT Regst(in long)",
    "40030002 get HRESULT RegstCle(out retval BSTR*)",
    "40030002 put HRESULT RegstCle(in BSTR)",
    "40030003 get HRESULT Etat(out retval short*)",
    "40030003 put HRESULT Etat(in short)",
    "40030004 get HRESULT Rapport(out retval BSTR*)",
    "40030004 put HRESULT Rapport(in BSTR)",
    "40030005 get HRESULT Scen(out retval BSTR*)",
    "40030005 put HRESULT Scen(in BSTR)",
    "40030006 get HRESULT Bouton(out retval IDispatch**)",
    "40030006 putref HRESULT Bouton(in IDispatch*)",
    "60030001 HRESULT RunT(in short vData)",
    "68030000 put HRESULT Run(in short)",
    "60030005 HRESULT GetTaskDescription(out retval BSTR*)",
    "60030007 HRESULT Affiche(out retval short*)",
    "60030009 HRESULT IsTrigger(out retval VARIANT_BOOL*)",
    "6003000a HRESULT IsActionSupported(in out long* lngActionType, out retval VARIANT_BOOL*)",
    "6003000b HRESULT ShowWrapper(out retval long*)",
    "6003000c HRESULT GetPicture(out retval {7BF80981-BF32-101A-8BBB-00AA00300CAB}**)",
    "6003000d HRESULT GetStatus(out retval long*)",
    "6003000e HRESULT GetSummary(out retval BSTR*)",
    "6003000f HRESULT GetTitle(out retval BSTR*)",
    "60030010 HRESULT GetWrapperType(out retval long*)",
    "60030011 HRESULT GetActions(out retval BSTR*)",
    "60030012 HRESULT GetWorkingMode(out retval long*)",
    "60030013 HRESULT GetName(out retval BSTR*)",
    "60030014 HRESULT SetLanguage(in out long* lngLanguage)",
    "60030015 HRESULT SetName(in out BSTR* strName)",
    "60030016 HRESULT SetRegistryRoot(in out long* lngRegistryRoot)",
    "60030017 HRESULT SetRegistrySubKey(in out BSTR* strRegistrySubKey)",
    "60030018 HRESULT SetReportFilePath(in out BSTR* strReportFilePath)",
    "60030019 HRESULT SetScenario(in out BSTR* strScenario)",
    "6003001a HRESULT SetWorkingMode(in out long* lngWorkingMode)",
    "6003001e HRESULT ExecuteTache()",
    "60030023 HRESULT InitializeProperties(in out BSTR* strName, in out BSTR* strScenario, "
    "in out long* lngLanguage)",
};

TEST_F(DualInterface, HasTheMembersOfTheContractInTheirOrder) {
  EXPECT_THAT(FunctionTexts(*VirtualTable().get()), ElementsAreArray(kMembers));
}

TEST_F(DualInterface, IsHiddenAndCannotBeExtended) {
  constexpr int kBothWays =
      TYPEFLAG_FHIDDEN | TYPEFLAG_FDUAL | TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FDISPATCHABLE;
  const Attributes late_bound = AttributesOf(*Type(0).get());
  EXPECT_EQ(late_bound.kind, TKIND_DISPATCH);
  EXPECT_EQ(late_bound.guid, "{10C5A522-33C3-4DA0-89C7-87EBE8FD57D0}");
  EXPECT_EQ(late_bound.flags, kBothWays);
  const Attributes early_bound = AttributesOf(*VirtualTable().get());
  EXPECT_EQ(early_bound.kind, TKIND_INTERFACE);
  EXPECT_EQ(early_bound.guid, late_bound.guid);
  EXPECT_EQ(early_bound.flags, kBothWays | TYPEFLAG_FOLEAUTOMATION);
}

TEST_F(DualInterface, HasItsMembersOneAfterTheOtherBehindThoseOfIDispatch) {
  const ComPointer<ITypeInfo> table = VirtualTable();
  constexpr int kDispatchMembers = 7;
  for (int i = 0; i < AttributesOf(*table.get()).functions; ++i) {
    FUNCDESC* function = nullptr;
    ASSERT_EQ(table->GetFuncDesc(static_cast<UINT>(i), &function), S_OK);
    EXPECT_EQ(function->oVft, static_cast<SHORT>((kDispatchMembers + i) * sizeof(void*))) << i;
    EXPECT_EQ(function->funckind, FUNC_PUREVIRTUAL) << i;
    EXPECT_EQ(function->callconv, CC_STDCALL) << i;
    table->ReleaseFuncDesc(function);
  }
  HREFTYPE reference = 0;
  ComPointer<ITypeInfo> base;
  ASSERT_EQ(table->GetRefTypeOfImplType(0, &reference), S_OK);
  ASSERT_EQ(table->GetRefTypeInfo(reference, base.Receive()), S_OK);
  EXPECT_EQ(AttributesOf(*base.get()).guid, "{00020400-0000-0000-C000-000000000046}");
}

}  // namespace
}  // namespace imptable
