#include "models/MessageDialogModel.h"

#include <OstrelLib/Exceptions.h>

#include <algorithm>
#include <array>

namespace Ostrel::Wx {

namespace {

constexpr const char* SOURCE = "MessageDialog";
constexpr int UNKNOWN_ICON_LINE = 332;
constexpr int UNKNOWN_RESULT_LINE = 367;

/// By the icon's number.
constexpr std::array<long, 5> NATIVE_ICONS{
    NativeMessageStyle::ICON_NONE,        NativeMessageStyle::ICON_ERROR,    NativeMessageStyle::ICON_WARNING,
    NativeMessageStyle::ICON_INFORMATION, NativeMessageStyle::ICON_QUESTION,
};

constexpr std::array<std::pair<int, int>, 4> NATIVE_RESULTS{{
    {NativeMessageResult::OK, MessageControlId::OK},
    {NativeMessageResult::CANCEL, MessageControlId::CANCEL},
    {NativeMessageResult::YES, MessageControlId::YES},
    {NativeMessageResult::NO, MessageControlId::NO},
}};

bool contains(ArrayView<const int> ids, int id) {
    return std::ranges::find(ids, id) != ids.end();
}

/// Whether the second half of a character that takes two `wchar_t` is there.
bool isLowSurrogate(wchar_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Words up to this long are measured whole before anything else: nearly all of them fit.
constexpr std::size_t USUAL_WORD_SIZE = 64;

/// How many units from `from` on, before `end`, fit into the width: one character at least. In a long word it tries
/// lengths from short to long, so that the cost is that of the piece and not that of the rest of the word.
std::size_t measurePiece(const String& text, std::size_t from, std::size_t end, int width,
                         const Function<int(const String&)>& measureWidth) {
    const auto fits = [&](std::size_t count) { return measureWidth(text.getSubstr(from, count)) <= width; };
    const std::size_t rest = end - from;
    if (rest <= USUAL_WORD_SIZE && fits(rest)) {
        return rest;
    }
    std::size_t good = 1;
    std::size_t bad = 2;
    while (bad <= rest && fits(bad)) {
        good = bad;
        bad *= 2;
    }
    if (bad > rest) {
        if (fits(rest)) {
            return rest;
        }
        bad = rest;
    }
    while (bad - good > 1) {
        const std::size_t middle = good + (bad - good) / 2;
        (fits(middle) ? good : bad) = middle;
    }
    if (good < rest && isLowSurrogate(text[from + good])) {
        good += good == 1 ? 1 : std::size_t(-1);
    }
    return good;
}

} // namespace

String expandMessageTabs(String message) {
    message.replaceAll("\t", "    ");
    return message;
}

String breakWideWords(const String& message, int width, const Function<int(const String&)>& measureWidth) {
    std::wstring broken;
    std::size_t position = 0;
    while (position < message.size()) {
        const std::size_t end = std::min(message.toWide().find_first_of(L" \n", position), message.size());
        while (position < end) {
            const std::size_t count = measurePiece(message, position, end, width, measureWidth);
            broken.append(message.toWide(), position, count);
            position += count;
            if (position < end) {
                broken += L'\n';
            }
        }
        if (end < message.size()) {
            broken += message[end];
        }
        position = end + 1;
    }
    return broken;
}

bool needsFrameClose(ArrayView<const int> ids) {
    return contains(ids, MessageControlId::CANCEL) && !contains(ids, MessageControlId::FRAME_CLOSE);
}

long computeMessageDialogStyle(ArrayView<const int> ids, bool hasTitle) {
    using namespace MessageDialogStyle;
    long style = CAPTION | SYSTEM_MENU;
    if (contains(ids, MessageControlId::FRAME_CLOSE)) {
        style |= CLOSE_BOX;
    }
    if (!contains(ids, MessageControlId::FRAME_ICON)) {
        style &= ~SYSTEM_MENU;
    }
    if (!hasTitle && (style & (SYSTEM_MENU | CLOSE_BOX)) == 0) {
        style &= ~CAPTION;
    }
    return style;
}

void MessageKeyTable::bind(int keyCode, int id) {
    const auto place = std::ranges::lower_bound(_ids, keyCode, {}, &std::pair<int, int>::first);
    if (place != _ids.end() && place->first == keyCode) {
        place->second = id;
    } else {
        _ids.insert(place, {keyCode, id});
    }
}

Optional<int> MessageKeyTable::find(int keyCode) const {
    const auto place = std::ranges::lower_bound(_ids, keyCode, {}, &std::pair<int, int>::first);
    return place != _ids.end() && place->first == keyCode ? Optional<int>(place->second) : std::nullopt;
}

Pixel centreInRegion(const Bucket& region, Pixel size) {
    return region.min + Pixel{region.width() / 2, region.height() / 2} - Pixel{size.x / 2, size.y / 2};
}

long computeNativeMessageStyle(ArrayView<const int> ids, int icon) {
    using namespace NativeMessageStyle;
    if (icon < 0 || icon >= static_cast<int>(NATIVE_ICONS.size())) {
        Detail::throwStopException(SOURCE, UNKNOWN_ICON_LINE);
    }
    long style = NATIVE_ICONS[static_cast<std::size_t>(icon)] | STAY_ON_TOP | CENTRE;
    if (contains(ids, MessageControlId::YES) && contains(ids, MessageControlId::NO)) {
        style |= YES_NO;
    }
    if (contains(ids, MessageControlId::OK)) {
        style |= OK;
    }
    if (contains(ids, MessageControlId::CANCEL)) {
        style |= CANCEL;
    }
    return style;
}

int mapNativeMessageResult(int result) {
    const auto mapped = std::ranges::find(NATIVE_RESULTS, result, &std::pair<int, int>::first);
    if (mapped == NATIVE_RESULTS.end()) {
        Detail::throwStopException(SOURCE, UNKNOWN_RESULT_LINE);
    }
    return mapped->second;
}

} // namespace Ostrel::Wx
