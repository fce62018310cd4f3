#include "automation/DispatchArguments.h"

#include <optional>

namespace imptable {
namespace {

/// The description of one member, freed with its owner.
class Member {
 public:
  /// Finds the member with this id that may be called in one of these ways.
  Member(ITypeInfo& info, DISPID id, WORD flags) : info_(info) {
    for (UINT index = 0; SUCCEEDED(info_.GetFuncDesc(index, &found_)); ++index) {
      if (found_->memid == id && (found_->invkind & flags) != 0 &&
          (found_->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0) {
        return;
      }
      info_.ReleaseFuncDesc(found_);
    }
    found_ = nullptr;
  }
  Member(const Member&) = delete;
  Member& operator=(const Member&) = delete;
  ~Member() {
    if (found_ != nullptr) info_.ReleaseFuncDesc(found_);
  }

  explicit operator bool() const { return found_ != nullptr; }
  bool IsPut() const {
    return (found_->invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0;
  }
  WORD flags() const { return static_cast<WORD>(found_->invkind); }

  /// Types of the arguments in declared order.
  std::vector<VARTYPE> ArgumentTypes() const {
    std::vector<VARTYPE> types;
    for (SHORT i = 0; i < found_->cParams; ++i) {
      const ELEMDESC& parameter = found_->lprgelemdescParam[i];
      if ((parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) continue;
      const TYPEDESC& type = parameter.tdesc;
      types.push_back(type.vt == VT_PTR ? static_cast<VARTYPE>(type.lptdesc->vt | VT_BYREF)
                                        : type.vt);
    }
    return types;
  }

 private:
  ITypeInfo& info_;
  FUNCDESC* found_ = nullptr;
};

/// @return the place in declared order of the argument given at `index`; nullopt for a name that
/// isn't declared.
std::optional<std::size_t> PlaceOf(const DISPPARAMS& given, UINT index, std::size_t count) {
  if (index >= given.cNamedArgs) return given.cArgs - 1 - index;
  const DISPID name = given.rgdispidNamedArgs[index];
  if (name == DISPID_PROPERTYPUT) return count - 1;
  if (name < 0 || static_cast<std::size_t>(name) >= count) return std::nullopt;
  return static_cast<std::size_t>(name);
}

bool IsMissing(const VARIANT& argument) {
  return V_VT(&argument) == VT_ERROR && V_ERROR(&argument) == DISP_E_PARAMNOTFOUND;
}

}  // namespace

DispatchArguments::~DispatchArguments() {
  for (VARIANT& value : converted_) VariantClear(&value);
}

HRESULT DispatchArguments::Prepare(ITypeInfo& info, DISPID id, WORD flags, LCID locale,
                                   const DISPPARAMS* given, UINT* wrong_argument) {
  if (given == nullptr || (given->cArgs != 0 && given->rgvarg == nullptr) ||
      (given->cNamedArgs != 0 && given->rgdispidNamedArgs == nullptr)) {
    return E_INVALIDARG;
  }
  const Member member(info, id, flags);
  if (!member) return DISP_E_MEMBERNOTFOUND;
  const std::vector<VARTYPE> types = member.ArgumentTypes();
  if (given->cArgs != types.size() || given->cNamedArgs > given->cArgs) {
    return DISP_E_BADPARAMCOUNT;
  }

  std::vector<VARIANT*> sources(types.size());
  std::vector<UINT> indexes(types.size());
  for (UINT index = 0; index < given->cArgs; ++index) {
    const std::optional<std::size_t> place = PlaceOf(*given, index, types.size());
    if (!place || sources[*place] != nullptr) {
      if (wrong_argument != nullptr) *wrong_argument = index;
      return DISP_E_PARAMNOTFOUND;
    }
    sources[*place] = &given->rgvarg[index];
    indexes[*place] = index;
  }

  arguments_.resize(types.size());
  converted_.resize(types.size());
  for (std::size_t place = 0; place < types.size(); ++place) {
    const HRESULT result = Convert(*sources[place], types[place], locale, place);
    if (SUCCEEDED(result)) continue;
    if (wrong_argument != nullptr) *wrong_argument = indexes[place];
    return result;
  }

  flags_ = member.flags();
  parameters_.cArgs = static_cast<UINT>(arguments_.size());
  parameters_.rgvarg = arguments_.data();
  if (member.IsPut()) {
    parameters_.cNamedArgs = 1;
    parameters_.rgdispidNamedArgs = &put_id_;
  }
  return S_OK;
}

HRESULT DispatchArguments::Convert(VARIANT& given, VARTYPE wanted, LCID locale, std::size_t place) {
  VARIANT* source = &given;
  if (V_VT(source) == (VT_VARIANT | VT_BYREF)) source = V_VARIANTREF(source);
  if (source == nullptr || V_VT(source) == (VT_VARIANT | VT_BYREF)) return DISP_E_BADVARTYPE;
  if (IsMissing(*source)) return DISP_E_PARAMNOTOPTIONAL;
  VARIANT& argument = arguments_[arguments_.size() - 1 - place];
  if (V_VT(source) == wanted) {
    argument = *source;
    return S_OK;
  }
  if (V_ISBYREF(source) && V_BYREF(source) == nullptr) return DISP_E_BADVARTYPE;
  VARIANT& value = converted_[place];
  const auto plain = static_cast<VARTYPE>(wanted & ~VT_BYREF);
  const HRESULT result = VariantChangeTypeEx(&value, source, locale, 0, plain);
  if (FAILED(result)) return result;
  argument = value;
  if (plain != wanted) {
    V_VT(&argument) = wanted;
    V_BYREF(&argument) = &V_NONE(&value);
  }
  return S_OK;
}

}  // namespace imptable
