// Ids of the effects' panels; read by the compiler and by the resource compiler.
#pragma once

#define ID_PANEL 100 // each library has one

#define ID_SUMMARY 110
#define ID_FILE 120
#define ID_BROWSE 121
#define ID_PLAYLIST_ABSOLUTE 122
