// Ids of the effects' panels; read by the compiler and by the resource compiler.
#pragma once

#define ID_PANEL 100 // each library has one

#define ID_SUMMARY 110

// Batch Report
#define ID_REPORT_FILE 120
#define ID_REPORT_BROWSE 121
