#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

#include <wx/dataobj.h>

namespace Ostrel::Wx {

/// One colour on its way by drag and drop, within a program or from one to another, in the format that the window
/// system knows by the name "Quarnel-Rgb".
///
/// The format is exactly 16 bytes: red, green, blue and alpha as IEEE 754 single-precision floats, each with its lowest
/// byte first; linear and not clamped. There is no header, version or checksum.
class OSTREL_WX_API RgbDataObject : public wxDataObjectSimple {
public:
    /// Without a colour, to receive one. It gives out black.
    RgbDataObject();

    explicit RgbDataObject(const Rgb& color);

    /// The colour that it was made with or has received last; nothing if neither.
    [[nodiscard]] const Optional<Rgb>& getColor() const { return _color; }

    /// Forgets the colour, so that a new one can be told from the last.
    void clear() { _color.reset(); }

    /// Always 16.
    [[nodiscard]] size_t GetDataSize() const override;

    /// Writes the 16 bytes to `buffer`.
    bool GetDataHere(void* buffer) const override;

    /// Takes the first 16 bytes.
    /// @return false for fewer; nothing is read or changed then
    bool SetData(size_t length, const void* buffer) override;

    // The other forms name the format, and do the same.
    using wxDataObjectSimple::GetDataHere;
    using wxDataObjectSimple::GetDataSize;
    using wxDataObjectSimple::SetData;

private:
    Optional<Rgb> _color;
};

} // namespace Ostrel::Wx
