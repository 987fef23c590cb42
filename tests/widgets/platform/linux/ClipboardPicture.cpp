#include "widgets/ClipboardPicture.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/image.h>

wxImage takePictureFromClipboard() {
    wxBitmapDataObject picture; // asks for PNG
    const wxClipboardLocker opened;
    return wxTheClipboard->GetData(picture) ? picture.GetBitmap().ConvertToImage() : wxImage();
}
