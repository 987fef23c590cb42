#include "Picture.h"

#include <OstrelLib/Streams.h>
#include <OstrelLibWx/BitmapUtils.h>

#include <wx/filename.h>
#include <wx/image.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

namespace Ostrel::Gallery {

namespace {

constexpr int FIELD_WIDTH = 720;
constexpr int FIELD_HEIGHT = 480;

// The chequered ground, in pixels of the picture and as stored values.
constexpr int CHEQUER_SIZE = 8;
constexpr float LIGHT_CHEQUER = 0.6f;
constexpr float DARK_CHEQUER = 0.4f;

constexpr float MAX_BYTE = 255.0f;

/// The picture as floats. Colours and alpha go separate ways, because a toolkit's bitmap may hold its colours
/// multiplied by alpha.
Expected<BitmapImpl<Rgb>, String> toFloats(wxImage image) {
    Array<unsigned char> alpha;
    if (image.HasAlpha()) {
        const std::size_t count =
            static_cast<std::size_t>(image.GetWidth()) * static_cast<std::size_t>(image.GetHeight());
        alpha.assign(image.GetAlpha(), image.GetAlpha() + count);
        image.ClearAlpha();
    }
    wxBitmap bitmap(image, 24);
    Expected<BitmapImpl<Rgb>, String> floats = Wx::toRgbBitmap(bitmap);
    if (floats && !alpha.empty()) {
        auto source = alpha.cbegin();
        for (int y = 0; y < floats->getHeight(); ++y) {
            for (Rgb& pixel : floats->row(y)) {
                pixel.alpha = static_cast<float>(*source++) / MAX_BYTE;
            }
        }
    }
    return floats;
}

/// The picture in a file; invalid if it cannot be read or decoded.
wxImage decodeFile(const Path& path) {
    constexpr std::size_t PART = 1 << 16;
    std::vector<unsigned> words; // the decoder takes words
    std::size_t size = 0;
    try {
        Io::FileInputStream file(path);
        for (std::size_t count = PART; count == PART; size += count) {
            words.resize((size + PART) / sizeof(unsigned));
            count = file.read(reinterpret_cast<unsigned char*>(words.data()) + size, PART);
            if (size + count > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
                return {};
            }
        }
    } catch (const Io::StreamException&) {
        return {};
    }
    return Wx::convertMemoryToImage(words.data(), static_cast<int>(size), wxBITMAP_TYPE_ANY);
}

float mix(float over, float under, float alpha) {
    return over * alpha + under * (1.0f - alpha);
}

} // namespace

Picture loadPicture(const Path& path) {
    Picture picture;
    picture.isFromFile = true;
    picture.name = wxString(path.fileName().toWide());
    const wxString file(path.nativeStr().toWide());
    if (!wxFileName::FileExists(file)) {
        picture.error = wxString::Format(L"The picture \"%s\" could not be read: there is no such file.", file);
        return picture;
    }
    wxImage image = decodeFile(path);
    if (!image.IsOk()) {
        picture.error = wxString::Format(
            L"The picture \"%s\" could not be read: it is damaged, or its format is not one of PNG, JPEG, BMP, GIF, "
            L"TIFF, TGA and ICO.",
            file);
        return picture;
    }
    if (image.HasAlpha()) {
        image.SetMask(false); // an icon has both, and alpha says more
    } else if (image.HasMask()) {
        image.InitAlpha();
    }
    picture.hasAlpha = image.HasAlpha();
    auto floats = toFloats(image);
    if (floats) {
        picture.image = std::move(*floats);
    } else {
        picture.error =
            wxString::Format(L"The picture \"%s\" could not be read: %s", file, wxString(floats.error().toWide()));
    }
    return picture;
}

wxString savePicture(const Picture& picture, const Path& path) {
    const wxString file(path.nativeStr().toWide());
    wxImageHandler* const handler = wxImage::FindHandler(wxFileName(file).GetExt().Lower(), wxBITMAP_TYPE_ANY);
    const bool known =
        handler != nullptr && (handler->GetType() == wxBITMAP_TYPE_PNG || handler->GetType() == wxBITMAP_TYPE_TIFF ||
                               handler->GetType() == wxBITMAP_TYPE_JPEG || handler->GetType() == wxBITMAP_TYPE_BMP);
    if (!known) {
        return wxString::Format(
            L"The picture was not saved as \"%s\": give it a name that ends in .png, .tif, .jpg or .bmp.", file);
    }
    wxImage image = Wx::toWxBitmap(picture.image, false).ConvertToImage();
    if (picture.hasAlpha) {
        // Beside the colours: a toolkit's bitmap may hold its colours multiplied by alpha.
        image.SetAlpha();
        unsigned char* target = image.GetAlpha();
        for (int y = 0; y < picture.image.getHeight(); ++y) {
            for (const Rgb& pixel : picture.image.row(y)) {
                *target++ = toRgbBytes({pixel.alpha, pixel.alpha, pixel.alpha}).red;
            }
        }
    }
    if (!image.SaveFile(file, handler->GetType())) {
        return wxString::Format(L"The picture could not be written to \"%s\": choose a folder that can be written to, "
                                L"with room for it.",
                                file);
    }
    return {};
}

Picture makeColourField() {
    Picture picture;
    picture.name = "A field of colours";
    picture.image = BitmapImpl<Rgb>(FIELD_WIDTH, FIELD_HEIGHT);
    for (int y = 0; y < FIELD_HEIGHT; ++y) {
        const float down = static_cast<float>(y) / static_cast<float>(FIELD_HEIGHT);
        for (int x = 0; x < FIELD_WIDTH; ++x) {
            const float across = static_cast<float>(x) / static_cast<float>(FIELD_WIDTH);
            const float wave = std::sin(std::numbers::pi_v<float> * (3.0f * down + 2.0f * across));
            picture.image(x, y) = hsvToRgb({360.0f * across, 0.9f - 0.7f * down, 0.55f + 0.4f * wave});
        }
    }
    return picture;
}

BitmapImpl<Rgb> putOnChequers(const Picture& picture) {
    BitmapImpl<Rgb> shown = picture.image;
    if (!picture.hasAlpha) {
        return shown;
    }
    for (int y = 0; y < shown.getHeight(); ++y) {
        int x = 0;
        for (Rgb& pixel : shown.row(y)) {
            const float ground = (x++ / CHEQUER_SIZE + y / CHEQUER_SIZE) % 2 == 0 ? LIGHT_CHEQUER : DARK_CHEQUER;
            pixel = {mix(pixel.red, ground, pixel.alpha), mix(pixel.green, ground, pixel.alpha),
                     mix(pixel.blue, ground, pixel.alpha), 1.0f};
        }
    }
    return shown;
}

} // namespace Ostrel::Gallery
