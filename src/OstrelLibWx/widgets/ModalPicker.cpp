#include "widgets/ModalPicker.h"

#include <OstrelLibWx/WindowUtils.h>

namespace Ostrel::Wx {

ModalPicker::~ModalPicker() {
    if (!isOpen()) {
        return; // the control's child like any other
    }
    // Neither the toolkit nor the system may take it away with the control's window.
    setOwnerFromNativeHandle(getWindowNativeHandle(_picker), {});
    _picker->GetParent()->RemoveChild(_picker);
    _picker->EndModal(wxID_CANCEL);
}

bool ModalPicker::isOpen() const {
    return _picker && _picker->IsModal();
}

void ModalPicker::show() {
    const wxWeakRef<ColorPicker> picker(_picker);
    picker->ShowModal();
    if (picker && picker->GetParent() == nullptr) {
        picker->Destroy();
    }
}

} // namespace Ostrel::Wx
