// The two moments at which effects and the batch meet: an effect that the encoder requires is put
// into the chain, and at the end every effect hears what the batch has done.
#pragma once

#include "engine/Records.h"
#include "foundation/XTagList.h"

class clBatch;

// "file1_in", "file1_out", and "file1_conversionhaderrors" for failed ones. Portable.
void FillResultList(const XArray<clBatchResult>& results, XTagList& list);

// "file2_errors" for failed ones, numbered as in the list of results: the lines of the log, separated by
// LF, up to some thousand units. Portable.
void FillErrorList(const XArray<clBatchResult>& results, const XArray<clLogEntry>& errorLog, XTagList& list);

// Windows only. Synchronous; then the batch's folder goes and its id becomes 0, so that a second call
// does nothing. Failures are silent.
void RunBatchEnd(clBatch& batch, const clConversionSetup& setup, const XArray<clBatchResult>& results,
                 const XArray<clLogEntry>& errorLog);
// Windows only. The chain text with the effect that the encoder asks for, or unchanged.
void AddRequiredEffect(XString& chainText, const XString& codecName, const XString& encoderSettings);
