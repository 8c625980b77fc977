// Numbers and fixed texts of the component's resources and controls. Plain macros, because the resource compiler reads
// this file too.
#pragma once

#define IDS_PROJNAME 100
#define IDR_REGISTRY 101
#define IDC_HELP_BUTTON 126
#define IDC_DEFAULT_BUTTON 127
#define IDC_APPLY_BUTTON 128
#define IDD_SETTINGS 129
#define IDD_SETTINGS_PAGE 130
#define IDR_SETTINGS_ICON 131
#define IDD_SETTINGS_MODELESS 132
#define IDD_SETTINGS_FRAME 134
#define IDD_SETTINGS_FORMVIEW 135
#define IDD_SETTINGS_FOR_VIEW 136
#define IDD_VIRT_DIALOG 209

#define QV_PROJECT_NAME "QVSettingsDialog"
#define QV_DIALOG_FONT "MS Shell Dlg"
#define QV_DIALOG_FONT_POINTS 8
#define QV_DIALOG_FONT_WEIGHT 400
#define QV_DIALOG_FONT_CHARSET 1
#define QV_BUTTON_WIDTH 50
#define QV_BUTTON_HEIGHT 14
