#pragma once

#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>

class wxWindow;

namespace Ostrel::Gallery {

class EventLog;
class Page;
struct Picture;

/// What every page is given.
struct PageContext {
    wxWindow* parent;       ///< of the page
    EventLog& log;          ///< outlives the page
    const Picture& picture; ///< outlives the page
};

/// A page as the list at the left knows it.
struct PageEntry {
    int order; ///< pages are listed by it, from the smallest on
    String title;
    Function<Page*(const PageContext&)> create;

    /// The title in lower case with '-' for spaces: what files are named after.
    [[nodiscard]] String getFileName() const;
};

/// Adds a page to the program: a page's source file holds one of these in an anonymous namespace, and nothing else
/// has to know of the page.
class PageRegistration {
public:
    PageRegistration(int order, const char* title, Function<Page*(const PageContext&)> create);
};

/// The usual registration: `PageType` is built from a `PageContext`.
template <class PageType>
PageRegistration registerPage(int order, const char* title) {
    return PageRegistration(order, title, [](const PageContext& context) -> Page* { return new PageType(context); });
}

/// All pages, in the order of the list.
ArrayView<const PageEntry> getPages();

/// The page with this title or file name, in whichever case.
Optional<std::size_t> findPage(const String& name);

} // namespace Ostrel::Gallery
