// The vocabulary of Get keys, as Plugin.h explains them.
#pragma once

namespace ZtKey {

inline constexpr wchar_t decodes[] = L"Decodes";
inline constexpr wchar_t decoderDescription[] = L"Decoder Description";
inline constexpr wchar_t extension[] = L"Extension";
inline constexpr wchar_t requiresDsp[] = L"RequiresDSP";
inline constexpr wchar_t noMultiCpu[] = L"NoMultiCPU";
inline constexpr wchar_t encodingMultiplier[] = L"MultiEncEncodingMultiplier";
inline constexpr wchar_t estimatedFileSize[] = L"GetEstimatedFileSize";
inline constexpr wchar_t disableSameFolder[] = L"DisableSameFolder";
inline constexpr wchar_t disableConvertToFolder[] = L"DisableConvertToFolder";
inline constexpr wchar_t batchEndConversion[] = L"BatchEndConversion";
inline constexpr wchar_t batchErrors[] = L"Batch Errors";
inline constexpr wchar_t checkSettings[] = L"Check Settings";
inline constexpr wchar_t lastError[] = L"Last Error";
inline constexpr wchar_t information[] = L"Information";
inline constexpr wchar_t writtenFormat[] = L"Written Format";
inline constexpr wchar_t writtenTags[] = L"Written Tags";
inline constexpr wchar_t tags[] = L"Tags";

} // namespace ZtKey
