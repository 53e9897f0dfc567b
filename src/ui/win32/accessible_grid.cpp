#include "ui/win32/accessible_grid.hpp"

#include "platform/win32/system_library.hpp"
#include "platform/win32/system_text.hpp"
#include "ui/win32/com_pointer.hpp"
#include "ui/win32/grid_window.hpp"

#include <oleacc.h>

#include <atomic>
#include <optional>

namespace tarnwick {
namespace {

constexpr const wchar_t* library = L"oleacc.dll";

VARIANT number(LONG value) noexcept {
    VARIANT result{};
    result.vt = VT_I4;
    result.lVal = value;
    return result;
}

BSTR text(const std::string& value) {
    return SysAllocString(toWide(value).c_str());
}

Grid::Place placeOf(const Grid& grid, LONG child) noexcept {
    const int index = static_cast<int>(child) - 1;
    return {.row = index / grid.columns(), .column = index % grid.columns()};
}

LONG stateOf(const Grid& grid, HWND window, std::optional<Grid::Place> place) {
    LONG state = grid.enabled() ? STATE_SYSTEM_FOCUSABLE : STATE_SYSTEM_UNAVAILABLE;
    const bool focused = GetFocus() == window;
    if (!place) {
        return state | (focused ? STATE_SYSTEM_FOCUSED : 0);
    }
    if (place->row == 0) {
        return STATE_SYSTEM_READONLY;
    }
    state |= STATE_SYSTEM_SELECTABLE;
    if (place->row == grid.row() && place->column == grid.column()) {
        state |= STATE_SYSTEM_SELECTED | (focused ? STATE_SYSTEM_FOCUSED : 0);
    }
    if (grid.cell(place->row, place->column).showsTick()) {
        state |= STATE_SYSTEM_CHECKED;
    }
    return state | (grid.rowIsVisible(place->row) ? 0 : STATE_SYSTEM_INVISIBLE);
}

// Components are destroyed by their last Release, never through a pointer to an interface.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Outlives the window if a screen reader keeps it: so it looks for the grid at every question.
class AccessibleGrid final : public IAccessible {
  public:
    explicit AccessibleGrid(HWND window) noexcept : window_(window) {}
    AccessibleGrid(const AccessibleGrid&) = delete;
    AccessibleGrid& operator=(const AccessibleGrid&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
        if (wanted != __uuidof(IUnknown) && wanted != __uuidof(IDispatch) &&
            wanted != __uuidof(IAccessible)) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<IAccessible*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) {
            delete this; // NOLINT(cppcoreguidelines-owning-memory): its users own it
        }
        return left;
    }

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override {
        static const auto objectFromWindow = systemFunction<decltype(AccessibleObjectFromWindow)>(
            library, "AccessibleObjectFromWindow");
        *parent = nullptr;
        return objectFromWindow == nullptr
                   ? E_NOTIMPL
                   : objectFromWindow(window_, static_cast<DWORD>(OBJID_WINDOW),
                                      __uuidof(IDispatch), reinterpret_cast<void**>(parent));
    }
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override {
        const Grid* const grid = shown();
        *count = grid == nullptr ? 0 : grid->rows() * grid->columns();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT /*id*/, IDispatch** child) override {
        *child = nullptr; // the cells are no objects of their own
        return S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT id, BSTR* name) override {
        return answer(id, *name, [](const Grid& grid, std::optional<Grid::Place> place) {
            return text(place ? grid.accessibleText(place->row, place->column)
                              : grid.accessibleName());
        });
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT id, VARIANT* role) override {
        return answer(id, *role, [](const Grid&, std::optional<Grid::Place> place) {
            const LONG ofCell =
                place && place->row == 0 ? ROLE_SYSTEM_COLUMNHEADER : ROLE_SYSTEM_CELL;
            return number(place ? ofCell : ROLE_SYSTEM_TABLE);
        });
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT id, VARIANT* state) override {
        return answer(id, *state, [this](const Grid& grid, std::optional<Grid::Place> place) {
            return number(stateOf(grid, window_, place));
        });
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override {
        *child = VARIANT{};
        const Grid* const grid = shown();
        if (grid == nullptr || GetFocus() != window_) {
            return S_FALSE;
        }
        *child = number(accessibleChild(*grid, {.row = grid->row(), .column = grid->column()}));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* child) override {
        return get_accFocus(child);
    }
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                          VARIANT id) override {
        RECT area{};
        const HRESULT result =
            answer(id, area, [this](const Grid& grid, std::optional<Grid::Place> place) {
                RECT found{};
                GetClientRect(window_, &found);
                return place ? cellArea(grid, *place, static_cast<int>(GetDpiForWindow(window_)))
                             : found;
            });
        MapWindowPoints(window_, nullptr, reinterpret_cast<POINT*>(&area), 2);
        *left = area.left;
        *top = area.top;
        *width = area.right - area.left;
        *height = area.bottom - area.top;
        return result;
    }
    HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override {
        *child = VARIANT{};
        const Grid* const grid = shown();
        if (grid == nullptr) {
            return S_FALSE;
        }
        POINT point{.x = left, .y = top};
        ScreenToClient(window_, &point);
        const auto place = cellAtPixel(*grid, point, static_cast<int>(GetDpiForWindow(window_)));
        *child = number(place ? accessibleChild(*grid, *place) : CHILDID_SELF);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT id, BSTR* action) override {
        return answer(id, *action, [](const Grid&, std::optional<Grid::Place> place) {
            return place ? text("Press") : nullptr;
        });
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT id) override {
        POINT middle{};
        const HRESULT result =
            answer(id, middle, [this](const Grid& grid, std::optional<Grid::Place> place) {
                const RECT area = cellArea(grid, place.value_or(Grid::Place{}),
                                           static_cast<int>(GetDpiForWindow(window_)));
                return POINT{.x = (area.left + area.right) / 2, .y = (area.top + area.bottom) / 2};
            });
        if (result == S_OK) {
            PostMessageW(window_, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(middle.x, middle.y));
            PostMessageW(window_, WM_LBUTTONUP, 0, MAKELPARAM(middle.x, middle.y));
        }
        return result;
    }

    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT, BSTR*) override { return none; }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT, BSTR*) override { return none; }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR*) override { return none; }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR*, VARIANT, LONG*) override { return none; }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT, BSTR*) override { return none; }
    HRESULT STDMETHODCALLTYPE accSelect(LONG, VARIANT) override { return none; }
    HRESULT STDMETHODCALLTYPE accNavigate(LONG, VARIANT, VARIANT*) override { return none; }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return none; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return none; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }

  private:
    static constexpr HRESULT none = DISP_E_MEMBERNOTFOUND;

    ~AccessibleGrid() = default;

    [[nodiscard]] const Grid* shown() const noexcept { return GridWindow::gridOf(window_); }

    // What `ask` says of the child of that number: of the cell, or of the grid itself.
    template <typename Result, typename Ask>
    HRESULT answer(const VARIANT& id, Result& result, const Ask& ask) const {
        result = Result{};
        const Grid* const grid = shown();
        if (grid == nullptr) {
            return CO_E_OBJNOTCONNECTED;
        }
        const int children = grid->rows() * grid->columns();
        if (id.vt != VT_I4 || id.lVal < 0 || id.lVal > children) {
            return E_INVALIDARG;
        }
        result = ask(*grid, id.lVal == CHILDID_SELF
                                ? std::nullopt
                                : std::optional<Grid::Place>(placeOf(*grid, id.lVal)));
        return S_OK;
    }

    HWND window_;
    std::atomic<ULONG> references_ = 1;
};

#pragma GCC diagnostic pop

} // namespace

LRESULT giveAccessibleGrid(HWND window, WPARAM wParam) {
    const ComPointer<AccessibleGrid> object(
        new AccessibleGrid(window)); // NOLINT(cppcoreguidelines-owning-memory)
    static const auto resultFromObject =
        systemFunction<decltype(LresultFromObject)>(library, "LresultFromObject");
    return resultFromObject == nullptr
               ? 0
               : resultFromObject(__uuidof(IAccessible), wParam, object.get());
}

LONG accessibleChild(const Grid& grid, Grid::Place place) noexcept {
    return place.row * grid.columns() + place.column + 1;
}

} // namespace tarnwick
