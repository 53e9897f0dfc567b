#include "ui/win32/accessible_name.hpp"

#include "platform/win32/system_text.hpp"
#include "ui/win32/com_pointer.hpp"

#include <oleacc.h>

namespace tarnwick {
namespace {

constexpr GUID nameProperty{
    0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};
constexpr GUID propertyServices{
    0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr GUID propertyServicesInterface{
    0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};

} // namespace

void setAccessibleName(HWND window, const std::string& name) noexcept {
    const ComUser com;
    ComPointer<IAccPropServices> services;
    if (CoCreateInstance(propertyServices, nullptr, CLSCTX_INPROC_SERVER, propertyServicesInterface,
                         services.receive()) == S_OK) {
        services->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                 nameProperty, toWide(name).c_str());
    }
}

} // namespace tarnwick
