#pragma once

#include <cpl_error.h>

#include <string>
#include <vector>

namespace TMObjects {

// One stretch of work with GDAL. The drivers are registered on first use, and what GDAL reports
// meanwhile is collected here instead of being printed, so that a failure reaches the user as one
// clear message and a script's transcript is not interleaved with library chatter.
// Only the host's data code includes this header: it brings GDAL's own headers with it.
class TLGdalCall {
public:
    TLGdalCall();
    ~TLGdalCall();
    TLGdalCall(const TLGdalCall&) = delete;
    TLGdalCall& operator=(const TLGdalCall&) = delete;

    // The failures reported so far, joined by "; "; empty when there were none.
    std::string Failures() const;
    // The failures, or `fallback` when GDAL gave no reason.
    std::string Reason(const std::string& fallback) const;
    // The first failure only, or `fallback`: where one failure brings a train of others (a full
    // disk, then every statement GDAL tries after it), the first is the cause.
    std::string FirstFailure(const std::string& fallback) const {
        return mFailures.empty() ? fallback : mFailures.front();
    }
    bool HasFailures() const { return !mFailures.empty(); }
    const std::vector<std::string>& Warnings() const { return mWarnings; }

private:
    static void CPL_STDCALL collect(CPLErr level, CPLErrorNum number, const char* message);
    std::vector<std::string> mFailures;
    std::vector<std::string> mWarnings;
};

}  // namespace TMObjects
