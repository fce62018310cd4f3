#ifndef AUTOMATION_COM_ENUMERATOR_H_
#define AUTOMATION_COM_ENUMERATOR_H_

#include <algorithm>
#include <vector>

#include "automation/AutomationEntry.h"
#include "automation/ComObject.h"

namespace imptable {

/// An enumerator of automation, over the elements that were there when it was made.
/// @tparam Element  keeps one element; its Give() makes the Item that a client receives and owns.
template <typename Interface, typename Item, typename Element>
class ComEnumerator final : public ComObject<Interface> {
 public:
  ComEnumerator(AutomationModule& module, std::vector<Element> elements, std::size_t at = 0)
      : ComObject<Interface>(module), elements_(std::move(elements)), at_(at) {}

  STDMETHODIMP Next(ULONG wanted, Item* items, ULONG* fetched) noexcept override {
    if (items == nullptr || (fetched == nullptr && wanted != 1)) return E_POINTER;
    ULONG given = 0;
    while (given < wanted && at_ < elements_.size()) items[given++] = elements_[at_++].Give();
    if (fetched != nullptr) *fetched = given;
    return given == wanted ? S_OK : S_FALSE;
  }

  STDMETHODIMP Skip(ULONG count) noexcept override {
    const std::size_t left = elements_.size() - at_;
    at_ += std::min<std::size_t>(count, left);
    return count <= left ? S_OK : S_FALSE;
  }

  STDMETHODIMP Reset() noexcept override {
    at_ = 0;
    return S_OK;
  }

  STDMETHODIMP Clone(Interface** clone) noexcept override {
    if (clone == nullptr) return E_POINTER;
    *clone = nullptr;
    return Enter([&] {
      *clone = MakeObject<ComEnumerator>(this->module(), elements_, at_).Release();
      return S_OK;
    });
  }

 private:
  std::vector<Element> elements_;
  std::size_t at_;
};

}  // namespace imptable

#endif  // AUTOMATION_COM_ENUMERATOR_H_
