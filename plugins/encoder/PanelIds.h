// Ids of the encoders' panels; read by the compiler and by the resource compiler.
#pragma once

#define ID_PANEL 100 // each library has one

#define ID_SUMMARY 110

// Wave, AIFF, Wave64
#define ID_PCM_FORMAT 120
#define ID_PCM_RATE 121
#define ID_PCM_CHANNELS 122

// FLAC
#define ID_FLAC_LEVEL 130
#define ID_FLAC_LEVEL_TEXT 131
#define ID_FLAC_VERIFY 132

// mp3 (Lame)
#define ID_MP3_VBR 140
#define ID_MP3_ABR 141
#define ID_MP3_CBR 142
#define ID_MP3_QUALITY_LABEL 143
#define ID_MP3_QUALITY 144
#define ID_MP3_QUALITY_LOW 145
#define ID_MP3_QUALITY_HIGH 146
#define ID_MP3_RATE_LABEL 147
#define ID_MP3_RATE 148
#define ID_MP3_MODE 149

// m4a AAC
#define ID_AAC_RATE 210
#define ID_AAC_CHANNELS 211

// ALAC
#define ID_ALAC_FORMAT 200

// Test Conversion
#define ID_TEST_CHECKSUM 160

// Opus
#define ID_OPUS_RATE 170
#define ID_OPUS_MODE 171
#define ID_OPUS_EFFORT 172
#define ID_OPUS_EFFORT_TEXT 173

// Ogg Vorbis
#define ID_VORBIS_QUALITY_KIND 180
#define ID_VORBIS_ABR_KIND 181
#define ID_VORBIS_QUALITY_LABEL 182
#define ID_VORBIS_QUALITY 183
#define ID_VORBIS_QUALITY_LOW 184
#define ID_VORBIS_QUALITY_HIGH 185
#define ID_VORBIS_RATE_LABEL 186
#define ID_VORBIS_RATE 187

// WavPack
#define ID_WAVPACK_MODE 190
#define ID_WAVPACK_EXTRA 191
#define ID_WAVPACK_EXTRA_TEXT 192
#define ID_WAVPACK_VERIFY 193
