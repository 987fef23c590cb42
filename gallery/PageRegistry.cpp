#include "PageRegistry.h"

#include <algorithm>
#include <cwctype>

namespace Ostrel::Gallery {

namespace {

/// A static of a function, because registrations run before any order of sources is settled.
Array<PageEntry>& getEntries() {
    static Array<PageEntry> entries;
    return entries;
}

String toLower(const String& text) {
    std::wstring lower = text.toWide();
    for (wchar_t& character : lower) {
        character = static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(character)));
    }
    return lower;
}

} // namespace

String PageEntry::getFileName() const {
    return toLower(title).replaceAll(" ", "-");
}

PageRegistration::PageRegistration(int order, const char* title, Function<Page*(const PageContext&)> create) {
    Array<PageEntry>& entries = getEntries();
    const auto place = std::upper_bound(entries.begin(), entries.end(), order,
                                        [](int value, const PageEntry& entry) { return value < entry.order; });
    entries.insert(place, PageEntry{order, title, std::move(create)});
}

ArrayView<const PageEntry> getPages() {
    return getEntries();
}

Optional<std::size_t> findPage(const String& name) {
    const Array<PageEntry>& entries = getEntries();
    const String wanted = toLower(name).replaceAll(" ", "-");
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].getFileName() == wanted) {
            return i;
        }
    }
    return {};
}

} // namespace Ostrel::Gallery
