#include "qvclient/qvsettingsdialog/dialogs/failed_opening.h"

#include "host/libraries/message_box.h"

void ReportFailedOpening(std::wstring_view caption) {
    CoErrorBox(nullptr, caption, L"The settings dialog could not be opened.", 0);
}
