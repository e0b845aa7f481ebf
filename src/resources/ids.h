// Ids of resources, controls and commands; read by the compiler and by the resource compiler.
#pragma once

// Icons
#define ID_ICON_PROGRAM 101
#define ID_ICON_SLOT 102
#define ID_ICON_INFORMATION 103
#define ID_ICON_OVERWRITE 105
#define ID_ICON_CORNER 106
#define ID_ICON_UNCHECK_ALL 107
#define ID_ICON_CHECK_ALL 108
#define ID_ICON_ERROR 131
#define ID_ICON_TEXT_LINE 132
#define ID_ICON_COLLAPSE 133
#define ID_ICON_EXPAND 134
#define ID_ICON_TAB_EFFECTS 136
#define ID_ICON_TAB_OTHER 137
#define ID_ICON_CHAIN_SAVE 139
#define ID_ICON_CHAIN_LOAD 140
#define ID_ICON_CHAIN_REMOVE 146
#define ID_ICON_CHECK_ON 150
#define ID_ICON_CHECK_OFF 151
#define ID_ICON_CHECK_ON_DISABLED 152
#define ID_ICON_CHECK_OFF_DISABLED 153
#define ID_ICON_RADIO_ON 154
#define ID_ICON_RADIO_OFF 155
#define ID_ICON_RADIO_ON_DISABLED 156
#define ID_ICON_RADIO_OFF_DISABLED 157

// Bitmaps
#define ID_BITMAP_REVIEW 130
#define ID_BITMAP_HINT_DYNAMIC 142
#define ID_BITMAP_HINT_FOLDER 143
// Progress bars for 96 dots per inch; 10 above are those for 144, 20 for 192, 30 for 120.
#define ID_BITMAP_BAR_EMPTY 160
#define ID_BITMAP_BAR_FULL 161
#define ID_BITMAP_ROW_EMPTY 162
#define ID_BITMAP_ROW_FULL 163

// Dialogs
#define ID_DIALOG_CONVERT_TO 102
#define ID_DIALOG_LIST_RENAME 104
#define ID_DIALOG_EFFECT_SETTINGS 138
#define ID_DIALOG_NEW_PROFILE 148
#define ID_DIALOG_CONVERTING 201
#define ID_DIALOG_ERRORS_INFO 202
#define ID_DIALOG_NAMING 203

// Menus
#define ID_MENU_EFFECTS 135
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

// The form of errors and information
#define ID_RESIZE_CORNER 1010
#define ID_LOG_TABS 1033
#define ID_LOG_TREE 1034
#define ID_LOG_COPY 1035
#define ID_LOG_RECONVERT 1041
#define ID_LOG_EXPAND_ALL 10001
#define ID_LOG_COLLAPSE_ALL 10002

// The dialog of naming templates
#define ID_NAMING_TEMPLATE 1040
#define ID_NAMING_EXAMPLE 1041

// The chain of effects: the button that opens its menu, and the menu's commands; those that add an
// effect begin with the last.
#define ID_EFFECT_ADD 1040
#define ID_EFFECT_PLACEHOLDER 40028
#define ID_EFFECT_REMOVE 40029
#define ID_EFFECT_CLEAR 40030
#define ID_EFFECT_SAVE 40031
#define ID_EFFECT_LOAD 40032
#define ID_EFFECT_FIRST 10000

// The set-up form, and the form for a new profile
#define ID_ENCODER_LIST 1001
#define ID_LIST_RENAME 1002
#define ID_FILE_COUNT 1003
#define ID_OUTPUT_ORIGINAL 1004
#define ID_OUTPUT_FOLDER 1005
#define ID_FOLDER_LIST 1006
#define ID_FOLDER_BROWSE 1007
#define ID_OUTPUT_DYNAMIC 1008
#define ID_NAMING_SET 1011
#define ID_OPTIONS_TAB 1037
#define ID_NAMING 1039
#define ID_PROFILE_NAME 1042
#define ID_PROFILE_ENCODER 1043
#define ID_PROFILE_NOTE 1044

// Lists of files: the overwrite form and what it shares with the list of all files
#define ID_DIALOG_OVERWRITE 129
#define ID_RENAME_ICON 1009
#define ID_RENAME_HINT 1012
#define ID_OVERWRITE_LIST 1031
#define ID_OVERWRITE_PICTURE 1032
#define ID_NO_TO_ALL 3
#define ID_ROWS_CHECK_ALL 10001
#define ID_ROWS_UNCHECK_ALL 10002
#define ID_ROWS_UNIQUE_NAMES 10003

// The list of files to convert
#define ID_FILE_LIST 1008
#define ID_LIST_SUMMARY 1011

// The form of the configuration program
#define ID_DIALOG_CONFIG 204
#define ID_CONFIG_TEMP 1050
#define ID_CONFIG_TEMP_BROWSE 1051
#define ID_CONFIG_OUTPUT_SET 1052
#define ID_CONFIG_OUTPUT_SCOPE 1053
#define ID_CONFIG_OUTPUT_LABEL 1054
#define ID_CONFIG_OUTPUT 1055
#define ID_CONFIG_OUTPUT_BROWSE 1056
#define ID_CONFIG_TIME 1057
#define ID_CONFIG_PROFILES 1058
#define ID_CONFIG_EXPLORER 1059
#define ID_CONFIG_FORGET 1060
