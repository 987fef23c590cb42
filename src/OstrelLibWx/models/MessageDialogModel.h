#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>

#include <utility>

namespace Ostrel::Wx {

/// Ids of the library's own controls of a message dialog, in the order in which they are constructed.
namespace MessageControlId {
inline constexpr int OUTSIDE_CLOSE = 15999;
inline constexpr int FRAME_CLOSE = 16000;
inline constexpr int FRAME_ICON = 16001;
inline constexpr int OK = 16002;
inline constexpr int CANCEL = 16003;
inline constexpr int YES = 16004;
inline constexpr int NO = 16005;
} // namespace MessageControlId

/// Bits of a dialog's window style, the toolkit's values.
namespace MessageDialogStyle {
inline constexpr long SYSTEM_MENU = 0x800;
inline constexpr long CLOSE_BOX = 0x1000;
inline constexpr long CAPTION = 0x20000000;
} // namespace MessageDialogStyle

/// Bits of the style of the toolkit's own message box, the toolkit's values.
namespace NativeMessageStyle {
inline constexpr long CENTRE = 0x1;
inline constexpr long YES_NO = 0x2 | 0x8;
inline constexpr long OK = 0x4;
inline constexpr long CANCEL = 0x10;
inline constexpr long ICON_WARNING = 0x100;
inline constexpr long ICON_ERROR = 0x200;
inline constexpr long ICON_QUESTION = 0x400;
inline constexpr long ICON_INFORMATION = 0x800;
inline constexpr long STAY_ON_TOP = 0x8000;
inline constexpr long ICON_NONE = 0x40000;
} // namespace NativeMessageStyle

/// What the toolkit's own message box returns, the toolkit's values.
namespace NativeMessageResult {
inline constexpr int OK = 5100;
inline constexpr int CANCEL = 5101;
inline constexpr int YES = 5103;
inline constexpr int NO = 5104;
} // namespace NativeMessageResult

/// The message as it is shown: four blanks for every tab.
[[nodiscard]] String expandMessageTabs(String message);

/// The message with line feeds put into words that are wider than `width`, so that every piece is as wide as fits, and
/// one character at least. Words end at blanks and line feeds. Where all words fit, the message comes back as it was.
[[nodiscard]] String breakWideWords(const String& message, int width, const Function<int(const String&)>& measureWidth);

/// Whether FRAME_CLOSE has to be added to these controls: what can be cancelled can always be closed.
[[nodiscard]] bool needsFrameClose(ArrayView<const int> ids);

/// The window style, of bits of `MessageDialogStyle`, for a dialog with these controls.
[[nodiscard]] long computeMessageDialogStyle(ArrayView<const int> ids, bool hasTitle);

/// Which control a key ends the dialog with.
class MessageKeyTable {
public:
    /// Replaces what was bound to the key before.
    void bind(int keyCode, int id);
    [[nodiscard]] Optional<int> find(int keyCode) const;

private:
    Array<std::pair<int, int>> _ids; ///< key code and id, by key code
};

/// Where a window's top left corner has to be for the window to have its middle in the middle of `region`. All pixels;
/// halves are truncated.
[[nodiscard]] Pixel centreInRegion(const Bucket& region, Pixel size);

/// The style, of bits of `NativeMessageStyle`, of the toolkit's own message box in the place of a dialog with these
/// controls. Controls other than OK, CANCEL, and YES and NO together, are left out.
/// @throws Detail::StopException at `MessageDialog`:332 for an icon outside 0 to 4
[[nodiscard]] long computeNativeMessageStyle(ArrayView<const int> ids, int icon);

/// The id of the control that the result of the toolkit's own message box stands for.
/// @throws Detail::StopException at `MessageDialog`:367 for a result that is not in `NativeMessageResult`
[[nodiscard]] int mapNativeMessageResult(int result);

} // namespace Ostrel::Wx
