#pragma once

#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/ComboBoxItem.h>
#include <OstrelLibWx/widgets/RawaBorder.h>
#include <OstrelLibWx/widgets/Skinnable.h>

#include <wx/gdicmn.h>

namespace Ostrel::Wx {

class ComboBoxDropdown;

/// A box that shows the selected of its rows, and opens a list of all of them. It begins with the default skin.
///
/// A press on the box opens the list directly under it, as wide as the box and at most 17 rows high, with the selected
/// row in view and highlighted. Where it fits only above the box it opens there; where it fits on neither side, it is
/// as high as the larger one has room for. Without rows there is nothing to open: neither a press nor a key nor `open`
/// shows an empty list. The list has the focus. A click on a row selects it and closes the list. It closes without a
/// choice
/// - on Escape, on a press of the box or anywhere else, and when the focus goes elsewhere;
/// - when the box is moved, hidden, disabled or destroyed, by itself or with the windows that it is in, and when it is
///   given no rows.
///
/// The selection is changed on the closed box and in the list alike
/// - by Up, Down, Home and End, which stop at the ends, and by the wheel, in the list from the highlighted row on;
/// - by typing: the next row that begins with what was typed without a pause, in upper or lower case.
/// Enter selects the highlighted row and closes the list; Space and F4 open and close it; Tab goes on from the box, and
/// closes the list. With Ctrl no key does anything here; with Alt, Up, Down, Home and End do what they do without it,
/// and the others are left to menus and the system.
///
/// A selection by the user, be it of the row that is selected already, by a click, and one that is set with `notify`
/// are told in this order. Each may destroy the box or give it other rows; what would have followed a destruction is
/// left out.
/// 1. A `wxCommandEvent` of type `wxEVT_COMBOBOX` is processed by the box, and then by its ancestors: the box's id and
///    the box as the object, `GetInt()` the row's id, `GetExtraLong()` its index, `GetString()` its text. The toolkit
///    keeps `GetSelection()` in the same place as `GetInt()`; it is the row's id, too.
/// 2. The callable given at construction is called with the row's id.
/// 3. The box is refreshed.
class OSTREL_WX_API ComboBox : public SkinnableMixin<RawaBorder>, public Focusable {
public:
    using Item = ComboBoxItem;

    /// What has happened to the list's window.
    enum class WindowEvent {
        SHOWN,  ///< it is on the screen; a host may place a window of its own relative to it
        HIDDEN, ///< it no longer is
    };

    /// @param width in design pixels; the height is 20 of them
    /// @param onSelect told of selections, see above; may be empty
    /// @param onWindowEvent told of the list's window, which the box owns and keeps for the next time; may be empty,
    /// and may destroy the box
    /// @param enabled whether the box starts enabled
    ComboBox(wxWindow* parent, int id, int width, const Function<void(int)>& onSelect,
             const Function<void(wxWindow*, WindowEvent)>& onWindowEvent, bool enabled);

    /// Closes the list, and tells nobody.
    ~ComboBox() override;

    /// Replaces the rows. The index that is selected stays selected, unless it lies beyond the new end: then none is.
    /// Tells nothing. An open list shows the new rows.
    void setData(ArrayView<const Item> items);

    /// Selects the last row that has this id. If none has, nothing is selected from then on and nothing is told, and
    /// the box shows it when it is painted next.
    void selectId(int id, bool notify);

    /// Selects the row, counted from 0. An index without a row selects nothing, and tells nothing.
    void selectIndex(int index, bool notify);

    /// Empty when nothing is selected.
    [[nodiscard]] Optional<int> getSelectedId() const;
    [[nodiscard]] Optional<int> getSelectedIndex() const;

    /// The number of rows.
    [[nodiscard]] int getCount() const;

    /// Opens the list as a press does; nothing if it is open, if the box is disabled, or without rows. The box has to
    /// be on the screen.
    void open();

    /// Closes the list without a choice; nothing if it is closed.
    void close();
    [[nodiscard]] bool isOpen() const;

    /// Whether the point, in screen coordinates, lies in the box or in the open list.
    [[nodiscard]] bool isInside(wxPoint point) const;

    void applySkin(const GuiSkin& skin) override;

    /// Disabling closes the list.
    bool Enable(bool enable = true) override;

    /// Draws the closed box.
    void paint(wxDC& dc) const override;

private:
    friend class ComboBoxDropdown;
    struct Impl;

    void makeDropdown();
    [[nodiscard]] const wxBitmap& getArrow(bool bright) const;
    void onKey(wxKeyEvent& event);
    void turnWheel(const wxMouseEvent& event, bool inList);
    void choose(int index);
    void leave(MoveFocusDirection direction);
    void toggle();
    void followSelection();
    void refreshBox();
    [[nodiscard]] bool notifySelection();
    void tellOfWindow(WindowEvent event);
    bool pressKey(const wxKeyEvent& event);
    bool pressListKey(const wxKeyEvent& event);
    bool pressEditKey(const wxKeyEvent& event);

    AutoPtr<Impl> _impl;
};

} // namespace Ostrel::Wx
