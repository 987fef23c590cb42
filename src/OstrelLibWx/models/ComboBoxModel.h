#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/widgets/ComboBoxItem.h>

namespace Ostrel::Wx {

/// The number of rows that an open list shows at most; the others are scrolled to.
constexpr int COMBO_BOX_MAX_SHOWN_ROWS = 17;

/// What was typed longer ago than this is no part of what is typed now.
constexpr double COMBO_BOX_TYPING_PAUSE_MS = 1000;

/// Where the rows of a list are, and how it scrolls. All in screen pixels; y is counted from the top of the first row's
/// margin, whatever is scrolled, unless it is said to be a scroll position, which is in scroll units.
class ComboBoxRows {
public:
    /// Rows are `wantedHeight` pixels high, rounded up to whole scroll units, so that they align with scroll steps.
    ComboBoxRows(int scrollUnit, int wantedHeight);

    [[nodiscard]] int getScrollUnit() const { return _scrollUnit; }
    [[nodiscard]] int getRowHeight() const { return _rowHeight; }

    /// Of so many rows, with the margin above them; at most the largest `int`.
    [[nodiscard]] int getHeight(int count) const;

    /// Where row `index` begins.
    [[nodiscard]] int getTop(int index) const;

    /// The row at `y`, of `count`; the margin counts to the first.
    [[nodiscard]] Optional<int> findRow(int y, int count) const;

    /// To which scroll position the list goes so that row `index` is seen; empty if it need not.
    [[nodiscard]] Optional<int> scrollIntoView(int index, int scrollPosition, int clientHeight) const;

private:
    int _scrollUnit;
    int _rowHeight;
};

/// Where a list opens.
struct ComboBoxPlace {
    Bucket window; ///< on the screen, with its frame
    int rows;      ///< how many are shown
};

/// Directly under the box and as wide, with at most `COMBO_BOX_MAX_SHOWN_ROWS` rows. Above the box where it fits only
/// there. Where it fits on neither side, on the larger one, with as many rows as there is room for, but at least one.
/// @param frameWidth of the window's frame, on each side
[[nodiscard]] ComboBoxPlace placeComboBoxList(const Bucket& box, const ComboBoxRows& rows, int count, int frameWidth,
                                              const Bucket& workArea);

/// What a key or the wheel asks for.
enum class ComboBoxMove { PREVIOUS, NEXT, FIRST, LAST };

/// The rows of a combo box, the one that is selected, and the one that is highlighted in the open list.
class ComboBoxModel {
public:
    /// Replaces all rows. A selection or highlight beyond the new end is dropped, another index stays.
    void setItems(ArrayView<const ComboBoxItem> items);
    [[nodiscard]] const Array<ComboBoxItem>& getItems() const { return _items; }
    [[nodiscard]] int getCount() const { return static_cast<int>(_items.size()); }

    /// Selects the last row with that id; none if there is none. True if there is one.
    bool selectId(int id);

    /// Selects that row, or none if there is no such row.
    void selectIndex(int index);
    [[nodiscard]] Optional<int> getSelected() const { return _selected; }

    /// The selected row, or null.
    [[nodiscard]] const ComboBoxItem* getSelectedItem() const;

    /// Stops at both ends. From no selection, the first is next, and nothing is previous. True if the selection
    /// changed.
    bool move(ComboBoxMove move);

    /// As `move`, from the highlighted row if there is one. True if the selection is another than before.
    bool moveFromHighlighted(ComboBoxMove move);

    /// A character was typed `msSinceLast` after the one before it. Selects the next row that begins with all that was
    /// typed without a pause, in any case; a character again and again goes from one such row to the next. True if the
    /// selection changed.
    bool type(wchar_t character, double msSinceLast);

    /// Whether a character typed now would add to those before it.
    [[nodiscard]] bool isTyping(double msSinceLast) const {
        return !_typed.empty() && msSinceLast <= COMBO_BOX_TYPING_PAUSE_MS;
    }

    /// No highlight if there is no such row. True if it changed.
    bool highlight(Optional<int> index);
    [[nodiscard]] Optional<int> getHighlighted() const { return _highlighted; }

private:
    [[nodiscard]] bool hasRow(int index) const { return index >= 0 && index < getCount(); }
    [[nodiscard]] Optional<int> findBeginningWith(const std::wstring& beginning, int from) const;

    Array<ComboBoxItem> _items;
    Optional<int> _selected;
    Optional<int> _highlighted;
    std::wstring _typed; ///< lower case
};

} // namespace Ostrel::Wx
