#pragma once

#include <OstrelLib/Types.h>

#include <wx/panel.h>

#include <deque>

namespace Ostrel::Gallery {

/// What the controls have told their host: the newest report on top, the ones before it below.
class EventLog : public wxPanel {
public:
    explicit EventLog(wxWindow* parent);

    /// Adds a report, or counts it up when it repeats the newest one.
    /// @param source the control, as the page calls it
    /// @param what the event or the callback, with what it carries
    void report(const wxString& source, const wxString& what);

    /// Forgets all reports.
    void clear();

    bool SetFont(const wxFont& font) override;

private:
    struct Entry {
        unsigned number; ///< of the newest of the reports counted here
        unsigned count;
        wxString source;
        wxString what;
    };

    void onPaint(wxPaintEvent& event);
    [[nodiscard]] int getLineHeight() const;

    std::deque<Entry> _entries; ///< newest first
    unsigned _reportCount = 0;
};

} // namespace Ostrel::Gallery
