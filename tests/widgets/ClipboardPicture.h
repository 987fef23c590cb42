#pragma once

class wxImage;

/// The picture on the clipboard as the platform's own programs take it; invalid if there is none.
wxImage takePictureFromClipboard();
