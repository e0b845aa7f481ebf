// What crosses between Tonemill and Millworker.exe: the switches of the command file and the lines
// that come back.
//
// Command file: one line of UTF-16LE without byte-order mark or line end. Each switch is preceded by a
// blank and written -name="value"; then the chain text (-dspeffect1="name=settings" ..., with {qt} for
// a double quote) and the encoder's settings text stand as they are. Values are not escaped.
//
// Output: UTF-16LE without byte-order mark, lines ending in CR LF, one line per write. On stderr every
// line is an error of this conversion. On stdout "MSGTO: zTM: KEY: VALUE" is a message, every other
// line information. The worker sets its watchdog event as a sign of life at least once a minute and
// ends soon after its quit event is set.
#pragma once

namespace ZtWorker {

inline constexpr wchar_t executable[] = L"Millworker.exe";
inline constexpr wchar_t commandFileSwitch[] = L"ztcmd"; // the one switch of the command line

inline constexpr wchar_t switchInFile[] = L"infile";
inline constexpr wchar_t switchOutFile[] = L"outfile";
inline constexpr wchar_t switchConvertTo[] = L"convert_to";
inline constexpr wchar_t switchQuitEvent[] = L"evtquit";
inline constexpr wchar_t switchWatchdogEvent[] = L"evtwatchdog";
inline constexpr wchar_t switchBatchId[] = L"batchid";
inline constexpr wchar_t switchProcessor[] = L"processor"; // 1 and up; absent: any
inline constexpr wchar_t switchTempFolder[] = L"tmpfolder";
inline constexpr wchar_t switchPriority[] = L"priority"; // high, low, idle; absent: normal
inline constexpr wchar_t switchEffect[] = L"dspeffect";  // followed by 1, 2, 3...
inline constexpr wchar_t quoteMark[] = L"{qt}";          // a double quote inside a chain value

inline constexpr wchar_t quitEventPrefix[] = L"ztevt-cancel-";
inline constexpr wchar_t watchdogEventPrefix[] = L"ztevt-watch-";

inline constexpr wchar_t messageMark[] = L"MSGTO: ";
inline constexpr wchar_t addressee[] = L"zTM";
inline constexpr wchar_t keyPercent[] = L"PCDone";
inline constexpr wchar_t keyFileName[] = L"FileName";
inline constexpr wchar_t keyAction[] = L"Action";
inline constexpr wchar_t keyActionInput[] = L"ActionInput";
inline constexpr wchar_t keyActionOutput[] = L"ActionOutput";

} // namespace ZtWorker
