#include "automation/CommonControls.h"

namespace imptable {
namespace {

constexpr WORD kManifest = 2;  // Windows' number for a module's own manifest: never change

HANDLE MakeContext(HMODULE module) {
  ACTCTXW request{};
  request.cbSize = sizeof request;
  request.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  request.hModule = module;
  request.lpResourceName = MAKEINTRESOURCEW(kManifest);
  return CreateActCtxW(&request);
}

}  // namespace

CommonControls::CommonControls(HMODULE module) : context_(MakeContext(module)) {
  if (context_ != INVALID_HANDLE_VALUE) is_active_ = ActivateActCtx(context_, &cookie_) != FALSE;
}

CommonControls::~CommonControls() {
  if (is_active_) DeactivateActCtx(0, cookie_);
  if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
}

}  // namespace imptable
