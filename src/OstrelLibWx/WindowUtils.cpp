#include <OstrelLibWx/WindowUtils.h>

#include <algorithm>
#include <cmath>

#include <wx/display.h>
#include <wx/icon.h>
#include <wx/iconbndl.h>
#include <wx/image.h>
#include <wx/settings.h>

#include <OstrelLib/Types.h>

#include "assets/ProductIcon.h"
#include "models/DisplayPlacement.h"
#include "painting/EmbeddedBitmaps.h"
#include "painting/ToolkitTypes.h"
#include "platform/Native.h"

namespace Ostrel::Wx {

namespace {

/// Height of the library's text in design pixels.
constexpr int TEXT_HEIGHT = 12;

constexpr int DESIGN_DPI = 96;

int scaleUnlessDefault(int value) {
    return value == wxDefaultCoord ? value : scaleByDpi(value);
}

wxDisplay findNearestDisplay(Pixel position) {
    const unsigned count = wxDisplay::GetCount();
    Array<Bucket> geometries;
    geometries.reserve(count);
    for (unsigned i = 0; i < count; ++i) {
        geometries.push_back(toBucket(wxDisplay(i).GetGeometry()));
    }
    return wxDisplay(static_cast<unsigned>(Detail::findNearestDisplay(geometries, position)));
}

void pushChildren(Stack<wxWindow*>& stack, const wxWindow& window) {
    const wxWindowList& children = window.GetChildren();
    stack.insert(stack.end(), children.begin(), children.end());
}

bool isSearched(const wxWindow& window, Flags<FindWindowFlag> flags) {
    return (window.IsShown() || flags.has(FindWindowFlag::INCLUDE_HIDDEN)) &&
           (window.IsEnabled() || flags.has(FindWindowFlag::INCLUDE_DISABLED));
}

bool acceptsMovedFocus(wxWindow* window) {
    return window->IsFocusable() && dynamic_cast<Focusable*>(window) != nullptr;
}

} // namespace

int scaleByDpi(int value) {
    // The toolkit asks the screen each time.
    static const int dpi = wxWindow::FromDIP(wxSize(DESIGN_DPI, 0), nullptr).x;
    if (dpi == DESIGN_DPI || value == wxDefaultCoord) {
        return value; // -1 stays what it is in the toolkit
    }
    return static_cast<int>(std::lround(static_cast<double>(value) * dpi / DESIGN_DPI));
}

Pixel scaleByDpi(Pixel pixel) {
    return {scaleByDpi(pixel.x), scaleByDpi(pixel.y)};
}

wxSize scaleByDpi(wxSize size) {
    return {scaleUnlessDefault(size.x), scaleUnlessDefault(size.y)};
}

wxPoint scaleByDpi(wxPoint point) {
    return {scaleUnlessDefault(point.x), scaleUnlessDefault(point.y)};
}

wxBitmap scaleByDpi(wxBitmap bitmap) { // NOLINT(performance-unnecessary-value-param): counts references
    const int factor = bitmap.IsOk() ? scaleByDpi(1) : 1;
    if (factor <= 1) {
        return bitmap;
    }
    const wxImage image = bitmap.ConvertToImage();
    return wxBitmap(image.Scale(image.GetWidth() * factor, image.GetHeight() * factor, wxIMAGE_QUALITY_NORMAL));
}

wxFont setDefaultFontSize(wxFont font, float factor) {
    constexpr float MAX_HEIGHT = 32767.0F; // of a font; NaN becomes it as well, rather than an undefined conversion
    const float height = std::clamp(static_cast<float>(scaleByDpi(TEXT_HEIGHT)) * factor, -MAX_HEIGHT, MAX_HEIGHT);
    font.SetPixelSize(wxSize(0, static_cast<int>(std::isnan(height) ? MAX_HEIGHT : height)));
    return font;
}

wxFont setupStaticTextFont(wxFont font, Flags<TextFlag> flags) {
    // Finding the size takes long, and most texts have the same font. Comparing the fonts themselves takes as long.
    static wxString lastGiven;
    static int lastHeight = 0;
    static wxFont lastSized;
    const int height = scaleByDpi(TEXT_HEIGHT);
    if (!font.IsOk()) {
        font = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
    }
    if (const wxString given = font.GetNativeFontInfoDesc(); lastGiven != given || lastHeight != height) {
        lastGiven = given;
        lastHeight = height;
        lastSized = font;
        lastSized.SetPixelSize(wxSize(0, height));
        lastSized = lastSized.GetBaseFont();
    }
    font = lastSized;
    if (flags.has(TextFlag::BOLD)) {
        font.MakeBold();
    }
    if (flags.has(TextFlag::ITALIC)) {
        font.MakeItalic();
    }
    return font;
}

void setIcon(wxTopLevelWindow* window, const wxBitmap& bitmap) {
    if (!bitmap.IsOk()) {
        window->SetIcons(wxIconBundle()); // an empty icon, for which the toolkit would assert
        return;
    }
    wxIcon icon;
    icon.CopyFromBitmap(bitmap);
    window->SetIcon(icon);
}

void setNimbraIcon(wxTopLevelWindow* window) {
    using namespace Detail::Assets;
    setIcon(window, getUnscaledAsset(PRODUCT_ICON, PRODUCT_ICON_SIZE));
}

WindowHandle getWindowNativeHandle(wxWindow* window) {
    return Detail::requireNativeHandle(*window);
}

WindowHandle getOwnerAsNativeHandle(WindowHandle handle) {
    return Detail::getNativeOwner(handle);
}

WindowHandle setOwnerFromNativeHandle(WindowHandle handle, WindowHandle owner) {
    Detail::setNativeOwner(handle, owner);
    return handle;
}

Bucket getScreenRegion(WindowHandle handle) {
    return Detail::getNativeScreenRegion(handle);
}

wxTopLevelWindow* findTopLevelWxWindowForNativeHandle(WindowHandle handle) {
    if (!handle) {
        return nullptr;
    }
    for (wxWindow* const window : wxTopLevelWindows) {
        if (Detail::findNativeHandle(*window) == handle) {
            return wxDynamicCast(window, wxTopLevelWindow);
        }
    }
    return nullptr;
}

wxWindow* findWindowByNativeHandle(wxWindow* root, WindowHandle handle) {
    if (!handle || root == nullptr) {
        return nullptr;
    }
    Stack<wxWindow*> stack{root};
    while (!stack.empty()) {
        wxWindow* const window = stack.back();
        stack.pop_back();
        if (Detail::findNativeHandle(*window) == handle) {
            return window;
        }
        pushChildren(stack, *window);
    }
    return nullptr;
}

wxWindow* findWindowByPosition(wxWindow* root, Pixel position, Flags<FindWindowFlag> flags) {
    if (root == nullptr) {
        return nullptr;
    }
    wxWindow* found = nullptr;
    Stack<wxWindow*> stack{root};
    while (!stack.empty()) {
        wxWindow* const window = stack.back();
        stack.pop_back();
        if (!isSearched(*window, flags)) {
            continue;
        }
        if (window->GetScreenRect().Contains(position.x, position.y)) {
            found = window;
        }
        pushChildren(stack, *window);
    }
    return found;
}

Bucket getMonitorRegionByPoint(Pixel position, MonitorRegionType type) {
    const wxDisplay display = findNearestDisplay(position);
    return toBucket(type == MonitorRegionType::WORK_AREA ? display.GetClientArea() : display.GetGeometry());
}

Bucket getMonitorRegionByWindow(wxWindow* window, MonitorRegionType type) {
    const wxRect rectangle = window->GetScreenRect();
    return getMonitorRegionByPoint({rectangle.x + rectangle.width / 2, rectangle.y + rectangle.height / 2}, type);
}

void smartPositionWindow(wxWindow* window, Pixel position) {
    const wxSize size = window->GetSize();
    const Bucket workArea = toBucket(findNearestDisplay(position).GetClientArea());
    const Pixel place = Detail::placeInWorkArea(workArea, {size.x, size.y}, position);
    window->Move(place.x, place.y, wxSIZE_ALLOW_MINUS_ONE); // -1 is a place like any other
}

void moveFocus(wxWindow* window, MoveFocusDirection direction) {
    if (window->GetParent() == nullptr) {
        return;
    }
    const wxWindowList& siblings = window->GetParent()->GetChildren();
    const auto next = [&siblings, direction](const wxWindowList::compatibility_iterator& node) {
        if (direction == MoveFocusDirection::FORWARD) {
            return node->GetNext() ? node->GetNext() : siblings.GetFirst();
        }
        return node->GetPrevious() ? node->GetPrevious() : siblings.GetLast();
    };
    const wxWindowList::compatibility_iterator start = siblings.Find(window);
    if (!start) {
        return;
    }
    for (auto node = next(start); node != start; node = next(node)) {
        if (acceptsMovedFocus(node->GetData())) {
            node->GetData()->SetFocus();
            return;
        }
    }
}

} // namespace Ostrel::Wx
