#include "platform/ClipboardNative.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>

#include <gtk/gtk.h>

#include <wx/image.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include "models/PixelConversion.h"

namespace Ostrel::Detail {

namespace {

/// A BMP file's contents: a header of 14 bytes, then the device-independent bitmap (Microsoft, "Bitmap Storage").
using BmpFile = Array<unsigned char>;

constexpr std::size_t FILE_HEADER_SIZE = 14;

BmpFile makeBmpFile(const BitmapImpl<Rgb>& image, bool spoilGrey) {
    BmpFile file(FILE_HEADER_SIZE + getDibSize(image.getWidth(), image.getHeight()));
    const auto write32 = [&file](std::size_t place, std::size_t value) {
        for (std::size_t i = 0; i < 4; ++i, value >>= 8) {
            file[place + i] = static_cast<unsigned char>(value);
        }
    };
    file[0] = 'B';
    file[1] = 'M';
    write32(2, file.size());
    write32(10, FILE_HEADER_SIZE + DIB_HEADER_SIZE); // where the rows begin
    writeDib(image, spoilGrey, ArrayView<unsigned char>(file).subspan(FILE_HEADER_SIZE));
    return file;
}

void answerAsPng(GtkSelectionData& selection, const BmpFile& file) {
    const wxLogNull silence;
    wxMemoryInputStream input(file.data(), file.size());
    wxMemoryOutputStream output;
    if (wxImage(input, wxBITMAP_TYPE_BMP).SaveFile(output, wxBITMAP_TYPE_PNG)) {
        Array<unsigned char> bytes(output.GetSize());
        output.CopyTo(bytes.data(), bytes.size());
        gtk_selection_data_set(&selection, gtk_selection_data_get_target(&selection), 8, bytes.data(),
                               static_cast<int>(bytes.size()));
    }
}

enum Target : guint { PNG, BMP };

void answer(GtkClipboard*, GtkSelectionData* selection, guint target, gpointer data) {
    const auto& file = *static_cast<const BmpFile*>(data);
    if (target == PNG) {
        try {
            answerAsPng(*selection, file); // made when it is wanted: it takes a while
        } catch (const std::bad_alloc&) {  // nothing is answered; GTK is C
        }
    } else {
        gtk_selection_data_set(selection, gtk_selection_data_get_target(selection), 8, file.data(),
                               static_cast<int>(file.size()));
    }
}

void forget(GtkClipboard*, gpointer data) {
    delete static_cast<BmpFile*>(data);
}

} // namespace

bool putOnClipboard(const BitmapImpl<Rgb>& image, bool spoilGrey, WindowHandle) {
    char png[] = "image/png";
    char bmp[] = "image/bmp";
    const std::array<GtkTargetEntry, 2> targets{{{png, 0, PNG}, {bmp, 0, BMP}}};
    GtkClipboard* const clipboard = gtk_clipboard_get(GDK_SELECTION_CLIPBOARD);
    std::unique_ptr<BmpFile> file;
    try {
        file = std::make_unique<BmpFile>(makeBmpFile(image, spoilGrey));
    } catch (const std::bad_alloc&) {
        return false;
    }
    if (file->size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) { // GTK counts bytes so
        return false;
    }
    if (gtk_clipboard_set_with_data(clipboard, targets.data(), static_cast<guint>(targets.size()), answer, forget,
                                    file.get()) == FALSE) {
        return false;
    }
    static_cast<void>(file.release()); // until `forget`
    gtk_clipboard_set_can_store(clipboard, nullptr, 0);
    return true;
}

void storeClipboardText() {}

} // namespace Ostrel::Detail
