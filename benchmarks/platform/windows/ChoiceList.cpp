#include "ChoiceList.h"

#include <windows.h>
#include <wx/choice.h>

void openChoiceList(wxChoice& choice) {
    SendMessageW(choice.GetHandle(), CB_SHOWDROPDOWN, TRUE, 0);
    COMBOBOXINFO info{.cbSize = sizeof info};
    GetComboBoxInfo(choice.GetHandle(), &info);
    UpdateWindow(info.hwndList);
}

void closeChoiceList(wxChoice& choice) {
    SendMessageW(choice.GetHandle(), CB_SHOWDROPDOWN, FALSE, 0);
}
