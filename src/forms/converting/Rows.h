// The rows of the converting form, one for each slot: their controls and places.
#pragma once

#include "engine/Records.h"

struct clRowControls {
    int text, label, icon; // control ids
    int y;                 // of bar and label in dialog units
};

inline constexpr int rowBarX = 57; // dialog units

inline constexpr clRowControls rowControls[maximumSlots] = {
    {1017, 1025, 1021, 66},  {1018, 1026, 1022, 91},  {1019, 1027, 1023, 116}, {1020, 1028, 1024, 141},
    {1033, 1032, 1031, 166}, {1035, 1034, 1040, 191}, {1037, 1036, 1041, 216}, {1039, 1038, 1042, 241},
    {1045, 1044, 1043, 266}, {1047, 1046, 1052, 291}, {1049, 1048, 1053, 316}, {1051, 1050, 1054, 341},
    {1057, 1056, 1055, 366}, {1059, 1058, 1064, 391}, {1061, 1060, 1065, 416}, {1063, 1062, 1066, 441},
};
