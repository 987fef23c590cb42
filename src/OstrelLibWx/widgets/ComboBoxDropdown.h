#pragma once

#include <OstrelLibWx/widgets/GuiSkin.h>

#include "models/ComboBoxModel.h"
#include "widgets/DropdownWatch.h"

#include <wx/frame.h>

class wxScrolledWindow;

namespace Ostrel::Wx {

class ComboBox;

/// The window with the list of a combo box. It belongs to the top-level window and not to the box, whose destruction in
/// a callback it outlives until it has handled the event that called.
class ComboBoxDropdown : public wxFrame {
public:
    ComboBoxDropdown(ComboBox& box, ComboBoxModel& model, const GuiSkin& skin);

    /// Fits the window to the box and the rows.
    void layOut();
    void present();
    void conceal();

    /// Hides the window and has it destroyed as soon as no event of its is under way. It knows its box no more.
    void dismiss();

    /// Scrolls the selected row into view.
    void showSelected();

    /// Highlights the selected row alone, and scrolls it into view.
    void followSelection();

    void applySkin(const GuiSkin& skin);

private:
    class Canvas;

    ComboBox* _box; ///< null once dismissed, and with it the model is gone
    ComboBoxModel& _model;
    ComboBoxRows _rows;
    GuiSkin _skin;
    Canvas* _canvas = nullptr;
    int _ownFrame;        ///< width of the frame that the window paints itself where the system gives it none, pixels
    int _shownHeight = 0; ///< of the canvas, pixels
    WindowHandle _owner;  ///< the box's top-level window, when the list was shown last
    DropdownWatch _watch;
};

} // namespace Ostrel::Wx
