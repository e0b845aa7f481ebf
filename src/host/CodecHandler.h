// Encoders and effects by name: their libraries, icons, output extensions and stored recipes.
#pragma once

#include "foundation/XArray.h"
#include "foundation/XHandles.h"
#include "host/EncoderItem.h"
#include "host/PluginFolders.h"
#include "host/clZtDSP.h"
#include "host/clZtEncoder.h"

// The name under which the load routines go; it has no state.
struct clZtCodecHandler {
    // True if the library is bound and an instance exists; whatever the object held before is gone.
    static bool LoadEncoder(const wchar_t* name, clZtEncoder& encoder, PluginCreateBlock* block);
    static bool LoadDSP(const wchar_t* name, clZtDSP& effect, PluginCreateBlock* block);
    // Writes UTF-16 to the block's log file, if there is one; any thread. "->->" and "<-<-" move the
    // indent, and `function`, if given, stands behind the text.
    static void Trace(const wchar_t* text, const PluginCreateBlock* block, const wchar_t* function = nullptr,
                      bool endOfLine = true);
};

[[nodiscard]] XString EncoderKeyPath(const wchar_t* itemText); // registry path of an item
// With its dot, as the encoder says it; empty on any failure. Loads the library.
[[nodiscard]] XString GetEncoderExtension(const wchar_t* name);

// 16 by 16: the library's own .ico, else what the shell shows for `extension`, else the program's
// icon 101. Owned by the caller.
[[nodiscard]] XIcon GetEncoderIcon(const wchar_t* extension, const wchar_t* libraryPath);
// The same as an index of the system's small icons; -1 if the shell knows none.
[[nodiscard]] int GetEncoderIconIndex(const wchar_t* extension, const wchar_t* libraryPath);
// The .ico beside an effect's library at 16 by 16; empty owner if there is none.
[[nodiscard]] XIcon GetEffectIcon(const wchar_t* libraryPath);

// The encoders that could be installed; empty when the file does not open.
void ReadSmartInstallList(XArray<clSmartInstall>& out);

enum clOutputMode : std::uint32_t { outputSourceFolder = 0, outputChosenFolder = 1, outputDynamic = 2 };

// A whole conversion as one item of the encoder list keeps it.
struct clRecipe {
    XString encoderSettings;                 // empty: the plug-in's defaults
    std::uint32_t mode = outputSourceFolder; // clOutputMode; other numbers come as they are stored
    XString folder;                          // in its stored form
    XString naming;
    XString effects; // chain text
};

// The template of an item that has none.
inline constexpr wchar_t defaultNaming[] = L"[artist]\\[artist] - [title]";

// Absent values come as their defaults: the user's music folder, defaultNaming.
[[nodiscard]] clRecipe ReadRecipe(const wchar_t* itemText);
void WriteRecipe(const wchar_t* itemText, const clRecipe& recipe);
void DeleteRecipe(const wchar_t* itemText); // a profile's key with all that is in it
