// Ids of the effects' panels; read by the compiler and by the resource compiler.
#pragma once

#define ID_PANEL 100 // each library has one

#define ID_SUMMARY 110
#define ID_FILE 120
#define ID_BROWSE 121
#define ID_PLAYLIST_ABSOLUTE 122

#define ID_CPU_FIRST 130 // to 145, one per processor
#define ID_CPU_FREE 146

#define ID_CHANNELS 150

#define ID_TRIM_AT 160
#define ID_TRIM_THRESHOLD 161
#define ID_TRIM_MINIMUM 162
#define ID_TRIM_KEEP 163

#define ID_FADE_IN 170
#define ID_FADE_OUT 171
#define ID_FADE_CURVE 172

#define ID_DELETE_OTHER_LENGTH 180

#define ID_RESAMPLE_RATE 190
#define ID_RESAMPLE_QUALITY 191
#define ID_RESAMPLE_BITS 192
#define ID_RESAMPLE_DITHER 193
#define ID_RESAMPLE_ONLY 194

#define ID_GAIN_ALBUM 200
#define ID_GAIN_PEAK 201

#define ID_VOLUME_MODE 210
#define ID_VOLUME_VALUE 211
#define ID_VOLUME_UNIT 212
#define ID_VOLUME_HAS_LIMIT 213
#define ID_VOLUME_LIMIT 214
#define ID_VOLUME_OVER 215
