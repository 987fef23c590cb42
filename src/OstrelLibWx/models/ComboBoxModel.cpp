#include "models/ComboBoxModel.h"

#include <algorithm>
#include <cstdint>
#include <cwctype>
#include <utility>

namespace Ostrel::Wx {

namespace {

/// Screen pixels, at every scale.
constexpr int TOP_MARGIN = 2;

wchar_t toLower(wchar_t character) {
    return static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(character)));
}

bool beginsWith(const String& text, const std::wstring& lowerCase) {
    return text.size() >= lowerCase.size() &&
           std::equal(lowerCase.begin(), lowerCase.end(), text.begin(),
                      [](wchar_t wanted, wchar_t character) { return toLower(character) == wanted; });
}

} // namespace

ComboBoxRows::ComboBoxRows(int scrollUnit, int wantedHeight)
    : _scrollUnit(scrollUnit)
    , _rowHeight((wantedHeight + scrollUnit - 1) / scrollUnit * scrollUnit) {}

int ComboBoxRows::getHeight(int count) const {
    return getTop(count);
}

int ComboBoxRows::getTop(int index) const {
    return Detail::saturateToInt(std::int64_t{index} * _rowHeight + TOP_MARGIN);
}

Optional<int> ComboBoxRows::findRow(int y, int count) const {
    const int row = (y - TOP_MARGIN) / _rowHeight;
    return y >= 0 && row < count ? Optional<int>(row) : Optional<int>();
}

Optional<int> ComboBoxRows::scrollIntoView(int index, int scrollPosition, int clientHeight) const {
    const auto toUnits = [this](std::int64_t y) { return Detail::saturateToInt(y / _scrollUnit); };
    const std::int64_t height = _rowHeight;
    const std::int64_t first = std::int64_t{_scrollUnit} * (std::int64_t{scrollPosition} + 1) / height;
    if (index < first) {
        return toUnits(index * height);
    }
    const int rows = clientHeight / _rowHeight;
    if (first + rows <= index) {
        return toUnits((std::int64_t{index} - rows + 1) * height + (TOP_MARGIN - clientHeight % _rowHeight));
    }
    return {};
}

ComboBoxPlace placeComboBoxList(const Bucket& box, const ComboBoxRows& rows, int count, int frameWidth,
                                const Bucket& workArea) {
    const auto getWindowHeight = [&](int shown) { return rows.getHeight(shown) + 2 * frameWidth; };
    const int roomBelow = workArea.max.y - box.max.y;
    const int roomAbove = box.min.y - workArea.min.y;
    int shown = std::min(count, COMBO_BOX_MAX_SHOWN_ROWS);
    const bool fits = getWindowHeight(shown) <= std::max(roomBelow, roomAbove);
    const bool below = fits ? getWindowHeight(shown) <= roomBelow : roomBelow >= roomAbove;
    if (!fits) {
        const int room = below ? roomBelow : roomAbove;
        shown = std::clamp((room - getWindowHeight(0)) / rows.getRowHeight(), 1, std::max(1, shown));
    }
    const int height = getWindowHeight(shown);
    const int x = std::max(workArea.min.x, std::min(box.min.x, workArea.max.x - box.width()));
    const int y = below ? box.max.y : box.min.y - height;
    return {{{x, y}, {x + box.width(), y + height}}, shown};
}

void ComboBoxModel::setItems(ArrayView<const ComboBoxItem> items) {
    _items.assign(items.begin(), items.end());
    for (Optional<int>* const index : {&_selected, &_highlighted}) {
        if (*index && !hasRow(**index)) {
            index->reset();
        }
    }
    _typed.clear();
}

bool ComboBoxModel::selectId(int id) {
    const auto found =
        std::find_if(_items.rbegin(), _items.rend(), [id](const ComboBoxItem& item) { return item.id == id; });
    selectIndex(static_cast<int>(_items.rend() - found) - 1);
    return _selected.has_value();
}

void ComboBoxModel::selectIndex(int index) {
    _selected = hasRow(index) ? Optional<int>(index) : Optional<int>();
}

const ComboBoxItem* ComboBoxModel::getSelectedItem() const {
    return _selected ? &_items[static_cast<std::size_t>(*_selected)] : nullptr;
}

bool ComboBoxModel::move(ComboBoxMove move) {
    if (_items.empty()) {
        return false;
    }
    const Optional<int> before = _selected;
    const int last = getCount() - 1;
    switch (move) {
    case ComboBoxMove::PREVIOUS:
        if (_selected) {
            _selected = std::max(*_selected - 1, 0);
        }
        break;
    case ComboBoxMove::NEXT:
        _selected = std::min(_selected.value_or(-1) + 1, last);
        break;
    case ComboBoxMove::FIRST:
        _selected = 0;
        break;
    case ComboBoxMove::LAST:
        _selected = last;
        break;
    }
    return _selected != before;
}

bool ComboBoxModel::moveFromHighlighted(ComboBoxMove direction) {
    const Optional<int> before = _selected;
    if (_highlighted) {
        _selected = _highlighted;
    }
    move(direction);
    return _selected != before;
}

bool ComboBoxModel::type(wchar_t character, double msSinceLast) {
    if (!isTyping(msSinceLast)) {
        _typed.clear();
    }
    _typed += toLower(character);
    const int current = _selected.value_or(-1);
    // More of a word may still be the same row; a first character asks for another one.
    Optional<int> found = findBeginningWith(_typed, _typed.size() > 1 ? std::max(current, 0) : current + 1);
    if (!found && _typed.find_first_not_of(_typed.front()) == std::wstring::npos) {
        found = findBeginningWith(_typed.substr(0, 1), current + 1);
    }
    return found && std::exchange(_selected, found) != found;
}

bool ComboBoxModel::highlight(Optional<int> index) {
    if (index && !hasRow(*index)) {
        index.reset();
    }
    return std::exchange(_highlighted, index) != index;
}

Optional<int> ComboBoxModel::findBeginningWith(const std::wstring& beginning, int from) const {
    const auto matches = [&beginning](const ComboBoxItem& item) { return beginsWith(item.text, beginning); };
    const auto start = _items.begin() + from;
    auto found = std::find_if(start, _items.end(), matches);
    if (found == _items.end()) {
        found = std::find_if(_items.begin(), start, matches);
        if (found == start) {
            return {};
        }
    }
    return static_cast<int>(found - _items.begin());
}

} // namespace Ostrel::Wx
