#include "compute/describe_run.h"

#include "platform/local_time.h"
#include "platform/native_path.h"
#include "platform/sha256.h"
#include "version.h"

RunDescription DescribeRun(const RunSource& source, const std::string& inputPath,
                           const std::string& date) {
    RunDescription run;
    run.toolVersion = QUARNEL_VERSION_TEXT;
    run.made = date.empty() ? LocalTimeText() : Utf8Text(date);
    run.modelPath = Utf8Text(source.modelPath);
    if (source.fromRecording) run.modelSha256 = Sha256OfFile(source.modelPath);
    run.inputPath = Utf8Text(inputPath);
    run.inputSha256 = Sha256OfFile(inputPath);
    run.fromRecording = source.fromRecording;
    return run;
}
