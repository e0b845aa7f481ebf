// Ids of resources, controls and commands; read by the compiler and by the resource compiler.
#pragma once

// Icons
#define ID_ICON_PROGRAM 101
#define ID_ICON_SLOT 102

// Dialogs
#define ID_DIALOG_CONVERTING 201

// Menus
#define ID_MENU_CONVERTING 301

// The converting form; the controls of its rows stand in Rows.h
#define ID_STATUS 1013
#define ID_SPEED 1014
#define ID_ELAPSED 1015
#define ID_REMAINING 1016
#define ID_HEADING 1029
#define ID_ENCODER_ICON 1030
#define ID_BUTTON_OPTIONS 1101
#define ID_BUTTON_PAUSE 1102
#define ID_BUTTON_CANCEL 1103
#define ID_BUTTON_FINISH 1104

// Commands of the Options menu
#define ID_PRIORITY_ABOVE 40002
#define ID_PRIORITY_NORMAL 40003
#define ID_PRIORITY_BELOW 40004
#define ID_PRIORITY_IDLE 40005
#define ID_AFTER_NOTHING 40007
#define ID_AFTER_TURN_OFF 40008
#define ID_AFTER_HIBERNATE 40009
#define ID_AFTER_STAND_BY 40010
#define ID_AFTER_LOG_OFF 40011
#define ID_SKIP_FINISHED 40021
#define ID_AFTER_RESTART 40023
#define ID_VIEW_LOGS 40024
#define ID_SHOW_ERROR_LOG 40025
#define ID_SHOW_INFORMATION_LOG 40026
