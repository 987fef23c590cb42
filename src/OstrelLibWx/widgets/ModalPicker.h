#pragma once

#include <OstrelLibWx/widgets/ColorPicker.h>

#include <wx/weakref.h>

namespace Ostrel::Wx {

/// A control's colour picker, which the control may not outlive: while the picker is shown modally, destroying it would
/// pull it from under its own event loop. A control that is destroyed meanwhile leaves it to that loop's caller.
class ModalPicker {
public:
    explicit ModalPicker(ColorPicker* picker)
        : _picker(picker) {}
    ModalPicker(const ModalPicker&) = delete;
    ModalPicker& operator=(const ModalPicker&) = delete;
    ~ModalPicker();

    [[nodiscard]] ColorPicker& get() const { return *_picker; }
    [[nodiscard]] bool isOpen() const;

    /// Shows it until it is closed, or its control is destroyed: this object is gone then, and the picker as well.
    void show();

private:
    wxWeakRef<ColorPicker> _picker;
};

} // namespace Ostrel::Wx
