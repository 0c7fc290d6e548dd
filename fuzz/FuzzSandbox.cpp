// The readers and judges of the local service.
#include "fuzz/FuzzInput.h"
#include "sandbox/SandboxCellJudge.h"
#include "sandbox/SandboxQuery.h"
#include "sandbox/SandboxTrace.h"
#include "sandbox/SandboxTraceJudge.h"

namespace {

const SandboxPath &curve()
{
    static const SandboxPath points{{40, 60}, {140, 180}, {260, 50}, {360, 170}};
    return points;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const SandboxTraceJudge judge(curve());
    static const SandboxCellJudge cells(curve());
    const QString text = QString::fromUtf8(fuzzBytes(data, size));
    const SandboxQuery query(text);
    const QString v = query.value(QStringLiteral("v"));
    (void)cells.accepts(v);
    for (const QString &candidate : {text, v}) {
        const auto trace = SandboxTrace::decode(candidate);
        if (!trace)
            continue;
        fuzzRequire(trace->points.size() >= 10 && trace->points.size() <= 80);
        fuzzRequire(trace->duration >= 0);
        const int score = judge.score(trace->points);
        fuzzRequire(score >= 0 && score <= 100);
        (void)trace->agreesWithDrawtime(query.value(QStringLiteral("drawtime")));
    }
    return 0;
}
