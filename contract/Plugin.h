// The plug-in contract: all that a third party needs to write a decoder, an encoder or an effect.
//
// A plug-in is a 64-bit DLL with C exports (x64 calling convention) and no class or exception across
// the border. Its folder says its kind; its file name without ".dll" is its display name, and a file
// of the same name with ".ico" its icon:
//
//     decoder\*.dll   exports  Create Destroy Get Set Open Close DecodeBlock SetPosition DeleteATag
//     encoder\*.dll   exports  ENC_Create ... ENC_EncodeBlock
//     DSPs\*.dll      exports  DSP_Create ... DSP_AfterConversion
//
// All exports of a kind must be there, or the library is not accepted. DLLs that a plug-in imports
// stand beside the program, not in the plug-in's folder.
//
// Two processes load plug-ins. Tonemill asks them about themselves (Get), shows their panels and tells
// effects of a batch's end; the worker, one process per file, runs the audio. A library may be loaded
// several times at once, each with an instance of its own; calls on one instance never overlap, but
// instances may live on different threads.
//
// Text is UTF-16, terminated, and stays owned by the side that made it. What a plug-in returns must
// live until the next call on that instance. Integers are little-endian. A plug-in must not throw,
// must not end the process and must answer every Get within a moment. Unknown keys answer 0.
//
// Audio between plug-ins is interleaved, 4 bytes per sample, in one of two kinds (`sampleKind`):
// integer samples as int32, sign-extended and right-aligned to `bitsPerSample` (16 bit audio runs from
// -32768 to 32767), or float samples as IEEE float with full scale at 1.0. A frame is one sample of
// every channel. Channel order is that of WAVEFORMATEXTENSIBLE's speaker bits, lowest bit first.
#pragma once

#include <cstddef>
#include <cstdint>

extern "C" {

typedef void* ZtInstance; // opaque; null is "none"

// ---- Blocks -------------------------------------------------------------------------------------

// Handed to every Create export; 24 bytes.
struct PluginCreateBlock {
    std::uint64_t reserved1; // 0
    std::uint64_t reserved2; // 0
    void* logFile;           // file handle for trace text in UTF-16, or null for no trace
};

// Handed to every Get and Set export; 56 bytes, zeroed by the caller, who fills what the key asks for.
struct PluginParams {
    std::uint32_t index;
    std::uint32_t dataSize; // bytes
    std::int64_t number;
    std::int64_t result;
    const wchar_t* text1;
    const wchar_t* text2;
    const wchar_t* text3;
    const void* data;
};

enum ZtSampleKind : std::uint16_t { ztSampleInteger = 1, ztSampleFloat = 3 };

enum ZtFormatFlags : std::uint32_t {
    ztFormatLossless = 1,    // the source is coded without loss
    ztFormatExactLength = 2, // frameCount is what decoding will give, to the frame
};

#pragma pack(push, 1)

// What audio a file holds; 68 bytes. Tonemill itself reads channels, frequency, bitsPerSample and
// lengthMs and carries the rest unchanged from the decoder to the encoder.
struct AudioFormatRecord {
    std::uint16_t sampleKind;    // ZtSampleKind, as DecodeBlock delivers
    std::uint16_t channels;      // 1 and up
    std::uint32_t frequency;     // frames per second
    std::uint32_t channelMask;   // speaker bits, 0 if unknown
    std::uint16_t sampleBytes;   // 4
    std::uint16_t bitsPerSample; // valid bits: 1 to 32 for integers, 32 for float
    std::uint32_t bitRate;       // of the coded source, bits per second; 0 if unknown
    std::uint32_t flags;         // ZtFormatFlags
    std::uint64_t frameCount;    // 0 if unknown
    std::uint8_t reserved1[12];
    std::uint64_t lengthMs; // play length in milliseconds
    std::uint8_t reserved2[16];
};

// What of a source Open is to find out.
enum ZtOpenWanted : std::uint32_t {
    ztOpenFormat = 4, // audio format only
    ztOpenAll = 28,   // format, tags and properties
};

// Handed to a decoder's Open; 128 bytes, zeroed by the caller.
struct DecoderOpenBlock {
    const wchar_t* path;  // in
    std::uint32_t wanted; // in, ZtOpenWanted
    AudioFormatRecord format;
    const void* tagData; // image of a tag list, see below; null if none
    std::uint32_t tagDataSize;
    const void* propertyData; // image of a second list: technical properties; null if none
    std::uint32_t propertyDataSize;
    std::uint8_t unused[24];
};

#pragma pack(pop)

// Handed to ENC_BeginConversion.
struct EncoderBeginBlock {
    std::uint32_t size; // of this block in bytes
    std::uint32_t batchId;
    const wchar_t* outputPath; // the file to write, new; its folder exists, its extension is the final one
    const wchar_t* sourcePath; // for messages
    const wchar_t* settings;   // the encoder's settings text; empty means its defaults
    const AudioFormatRecord* format; // what EncodeBlock will get; frameCount may be 0
    const void* tagData;             // image of a tag list to carry over, or null
    std::uint32_t tagDataSize;
    std::uint32_t propertyDataSize;
    const void* propertyData; // image, or null
};

// Handed to DSP_BeginConversion.
struct DspBeginBlock {
    std::uint32_t size; // of this block in bytes
    std::uint32_t batchId;
    const wchar_t* sourcePath;
    const wchar_t* outputPath;
    const wchar_t* settings;
    AudioFormatRecord* format; // in: what comes; out: what the effect will deliver
    const void* tagData;       // image, or null; an effect that changes tags points it at its own
    std::uint32_t tagDataSize;
    std::uint32_t wantsNonLive; // out: non-zero asks for a first pass over the whole file
};

// One run of frames into an effect and what comes out of it.
struct DspAudioBlock {
    const void* input; // frames in the format that Begin was told; null at the end
    std::uint32_t inputFrames;
    std::uint32_t outputFrames; // out
    const void* output;         // out: owned by the effect until the next call; may be `input`
};

// ---- Lists of tags and properties ---------------------------------------------------------------
//
// Image: u32 record count; per record u32 record size (with these 4 bytes), key and value as
// terminated UTF-16, and the rest of the record as a blob.
//
// Tag keys, compared without regard to the case of A-Z; several values of one key stand in one
// record, separated by CR (13), and line ends inside a value are LF (10):
//   title artist album "album artist" composer conductor genre year track disc comment lyrics
//   compilation bpm copyright publisher isrc, and any other key that a source brings.
//   track and disc are "3" or "3/12". "replaygain_track_gain" and its kin keep their usual names.
// Cover art: key "picture", value "TYPE;MIME;DESCRIPTION" where TYPE is the number of the ID3v2 picture
//   type (3 is the front cover), blob the file's bytes. Several pictures are several records.
// Property keys: "Encoder", "Encoder Settings" ("-V2"), "protected" and "gapless" ("Yes" or "No"),
//   "ID Tag" ("ID3v2.3 & ID3v1.1"), "Audio Quality" ("Perfect (Lossless)", "Medium (Lossy)").

// ---- Decoders -----------------------------------------------------------------------------------

typedef ZtInstance (*DecoderCreate)(PluginCreateBlock*); // null on failure
typedef void (*DecoderDestroy)(ZtInstance);              // closes what is open
// Keys: "Decodes"             index 0, 1, 2...: text1 one extension with its dot, text2 what users call
//                             the format; 0 behind the last
//       "Decoder Description" text1: of the format that was the last answer to "Decodes", else of all
//       "Last Error"          text1: why the last Open, DecodeBlock or SetPosition failed
//       "Information"         text1: what the user should know of the file that was decoded to its end,
//                             lines separated by LF
typedef std::int32_t (*DecoderGet)(ZtInstance, const wchar_t* key, PluginParams*);
typedef std::int32_t (*DecoderSet)(ZtInstance, const wchar_t* key, PluginParams*); // no keys yet: 0
// Opens a source, closing an earlier one. Non-zero on success; images live until Close.
typedef std::int32_t (*DecoderOpen)(ZtInstance, DecoderOpenBlock*);
typedef void (*DecoderClose)(ZtInstance);
// Up to maxFrames frames; 0 at the end, -1 on damage. Encoder delay and padding are cut off.
typedef std::int32_t (*DecoderDecodeBlock)(ZtInstance, void* samples, std::uint32_t maxFrames);
typedef std::int32_t (*DecoderSetPosition)(ZtInstance, std::uint64_t frame); // non-zero on success
// Drops the records of one key from the lists that Open delivered; the file is not touched.
typedef std::int32_t (*DecoderDeleteATag)(ZtInstance, const wchar_t* key); // non-zero if one went

// ---- Encoders -----------------------------------------------------------------------------------

typedef ZtInstance (*EncoderCreate)(PluginCreateBlock*);
typedef void (*EncoderDestroy)(ZtInstance);
// Keys: "Extension"                  text1: of the output, with its dot; ".IGNORE": there is no output,
//                                    and outputPath below is a name without a file
//       "RequiresDSP"                text1 settings; text2: "effect=settings" that must be in the chain
//       "NoMultiCPU"                 text1 settings; non-zero: one worker at a time
//       "MultiEncEncodingMultiplier" text1 settings; returns how often faster the speed is to be shown
//       "GetEstimatedFileSize"       number length in ms, text1 settings, data AudioFormatRecord*;
//                                    result: bytes
//       "DisableSameFolder", "DisableConvertToFolder"  non-zero: do not offer that output choice
//       "Check Settings"             text1 settings; non-zero if they are good, else text2 says what is
//                                    wrong (an encoder that does not know the key answers 0 and null)
//       "Last Error"                 text1: why the last Begin, EncodeBlock or End failed
//       "Information"                text1: what the user should know of a complete file, such as what of
//                                    its source it can't hold; lines separated by LF
//       "Written Format"             data AudioFormatRecord*: what a decoder will find in the complete file;
//                                    channels, frequency and, with bitsPerSample not 0, the samples of a
//                                    lossless format are compared
//       "Written Tags"               data and dataSize image of a list: the tags that a decoder will find;
//                                    each key is compared with its number of values, pictures with theirs
//       A complete file that holds something else is a failure. Without these two, length is compared.
typedef std::int32_t (*EncoderGet)(ZtInstance, const wchar_t* key, PluginParams*);
typedef std::int32_t (*EncoderSet)(ZtInstance, const wchar_t* key, PluginParams*); // no keys yet: 0
// Shows the settings panel as a child of `parent` at x, y (pixels), filled from the settings text.
typedef void (*EncoderShowConfigBit)(ZtInstance, void* parent, std::int32_t x, std::int32_t y,
                                     const wchar_t* settings);
// Removes the panel and returns its settings text; ztKeepPanel as parent: returns it and keeps the panel.
typedef const wchar_t* (*EncoderRemoveConfigBit)(ZtInstance, void* parent);
typedef std::int32_t (*EncoderBeginConversion)(ZtInstance, const EncoderBeginBlock*); // non-zero: go on
// Frames in the format of Begin. Non-zero on success.
typedef std::int32_t (*EncoderEncodeBlock)(ZtInstance, const void* samples, std::uint32_t frames);
// Ends the file: complete with its tags, or, with completed 0, closed as it stands (the worker deletes
// it). Non-zero on success.
typedef std::int32_t (*EncoderEndConversion)(ZtInstance, std::int32_t completed);

// ---- Effects ------------------------------------------------------------------------------------

typedef ZtInstance (*DspCreate)(PluginCreateBlock*);
typedef void (*DspDestroy)(ZtInstance);
// Keys: "BatchEndConversion" number batch id, data and dataSize image of a list of the batch's files
//                            ("file1_in", "file1_out", "file1_conversionhaderrors", "file2_in"...),
//                            text1 own settings, text2 encoder settings, text3 encoder name. In
//                            Tonemill, once per batch, after the last worker has ended.
//       "Batch Errors"       just before it, on the same instance, if files failed: data and dataSize
//                            image of a list that has for each of those what its error log says
//                            ("file2_errors", numbered as above), lines separated by LF
//       "Tags"               data and dataSize image of the tags that the chain delivers so far; non-zero
//                            if the effect has changed them, data and dataSize being its own image then.
//                            In the worker, once, when all first passes are over: for tags that tell
//                            what they found.
//       "Information"        text1: what the user should know of a file whose audio went through whole;
//                            lines separated by LF
//       "Last Error"         text1: why the last Begin, Pass or End failed
typedef std::int32_t (*DspGet)(ZtInstance, const wchar_t* key, PluginParams*);
typedef std::int32_t (*DspSet)(ZtInstance, const wchar_t* key, PluginParams*); // no keys yet: 0
typedef void (*DspShowConfigBit)(ZtInstance, void* parent, std::int32_t x, std::int32_t y,
                                 const wchar_t* settings);
typedef const wchar_t* (*DspRemoveConfigBit)(ZtInstance, void* parent);
// 1: audio is to pass through; 0: this effect wants none of this file's audio; -1: failure.
typedef std::int32_t (*DspBeginConversion)(ZtInstance, DspBeginBlock*);
// One run of frames. Non-zero on success.
typedef std::int32_t (*DspPassAudioBlock)(ZtInstance, DspAudioBlock*);
// The same frames beforehand, output ignored, when Begin asked for it: the effect learns of the whole
// file (its loudness, say) before the first PassAudioBlock. input null: that pass is over.
// The effects ahead of it run live for that pass; then they get AfterConversion with `failed` and are
// begun anew on the same instance, with a first pass again if they want one.
typedef std::int32_t (*DspPassNonLive)(ZtInstance, DspAudioBlock*);
// No more input. Called until outputFrames is 0: what the effect still holds. Non-zero on success.
typedef std::int32_t (*DspEndConversion)(ZtInstance, DspAudioBlock*);
// The file is done; `failed` non-zero: no output stands. Also called after an EndConversion left out.
typedef void (*DspAfterConversion)(ZtInstance, std::int32_t failed);

} // extern "C"

// As parent of a RemoveConfigBit: give the settings, keep the panel.
#define ztKeepPanel (reinterpret_cast<void*>(static_cast<std::intptr_t>(-123)))

static_assert(sizeof(void*) == 8 && sizeof(wchar_t) == 2, "the contract is 64-bit and UTF-16");
static_assert(sizeof(PluginCreateBlock) == 24 && offsetof(PluginCreateBlock, logFile) == 16);
static_assert(sizeof(PluginParams) == 56);
static_assert(offsetof(PluginParams, dataSize) == 4 && offsetof(PluginParams, number) == 8);
static_assert(offsetof(PluginParams, result) == 16 && offsetof(PluginParams, text1) == 24);
static_assert(offsetof(PluginParams, text2) == 32 && offsetof(PluginParams, text3) == 40);
static_assert(offsetof(PluginParams, data) == 48);
static_assert(sizeof(AudioFormatRecord) == 68);
static_assert(offsetof(AudioFormatRecord, channels) == 2 && offsetof(AudioFormatRecord, frequency) == 4);
static_assert(offsetof(AudioFormatRecord, bitsPerSample) == 14);
static_assert(offsetof(AudioFormatRecord, lengthMs) == 44);
static_assert(sizeof(DecoderOpenBlock) == 128);
static_assert(offsetof(DecoderOpenBlock, wanted) == 8 && offsetof(DecoderOpenBlock, format) == 12);
static_assert(offsetof(DecoderOpenBlock, tagData) == 80 && offsetof(DecoderOpenBlock, tagDataSize) == 88);
static_assert(offsetof(DecoderOpenBlock, propertyData) == 92);
static_assert(offsetof(DecoderOpenBlock, propertyDataSize) == 100);
