// The names of all stored settings, so that no reader and writer can spell one differently.
#pragma once

namespace Setting {

// Subkeys, to be handed to SettingsPath.
inline constexpr wchar_t keyCodecs[] = L"\\zTMCodec";
inline constexpr wchar_t keyDecoderCache[] = L"\\DecoderCache64";
inline constexpr wchar_t keyDiscProfile[] = L"\\Discwinder\\Profiles\\(default)";
inline constexpr wchar_t keyTagging[] = L"\\Tagging";
inline constexpr wchar_t keyUnits[] = L"\\Plinth";

// Values of the root key.
inline constexpr wchar_t installedDefault[] = L"InstalledDefault";    // DWORD
inline constexpr wchar_t freqConversion[] = L"zTMProfFreqConversion"; // DWORD
inline constexpr wchar_t lastCodec[] = L"zTMLastCodec";               // text: the current item
inline constexpr wchar_t lastFolder[] = L"zTMLastFolder";       // text; followed by 0 to 9, 0 the newest
inline constexpr wchar_t allowProfiles[] = L"zTMAllowProfiles"; // DWORD
inline constexpr wchar_t lastAccessedFolder[] = L"LastAccessedFolder"; // text
inline constexpr wchar_t tempFileLocation[] = L"ZtTempFileLocation";   // text
inline constexpr wchar_t noPreCache[] = L"zTMNoPreCache";              // DWORD
inline constexpr wchar_t priority[] = L"zTMPriority";                  // DWORD
inline constexpr wchar_t skippedFinish[] = L"zTMSkipedFinish";         // DWORD; stored under this spelling
inline constexpr wchar_t formX[] = L"zTM-X";                           // DWORD
inline constexpr wchar_t formY[] = L"zTM-Y";                           // DWORD
inline constexpr wchar_t displayInfo[] = L"zTM-DisplayInfo";           // DWORD
inline constexpr wchar_t noDisplayError[] = L"zTM-NoDisplayError";     // DWORD
inline constexpr wchar_t uniqueNumber[] = L"Unique";                   // DWORD

// Values of an item's key, see EncoderKeyPath.
inline constexpr wchar_t encoderSettings[] = L"zTM_CLI";        // text
inline constexpr wchar_t outputMode[] = L"ZTMUserFolder";       // DWORD
inline constexpr wchar_t outputFolder[] = L"ZTMUserFolderStr";  // text
inline constexpr wchar_t dynamicNaming[] = L"ZTMDynamicNaming"; // text
inline constexpr wchar_t effectChain[] = L"ZTMDSPEffects";      // text

// Values of keyUnits, keyDiscProfile and keyTagging; all DWORD.
inline constexpr wchar_t unitsTime[] = L"UnitsTime";
inline constexpr wchar_t albumArtFolder[] = L"AlbumArtFolderJPG";
inline constexpr wchar_t tagDefault[] = L"Mp3TagDefault";
inline constexpr wchar_t tagUnicode[] = L"Mp3ID3v2UnicodeEncode";

} // namespace Setting
