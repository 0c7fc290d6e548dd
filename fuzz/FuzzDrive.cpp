// Drive files of the demo.
#include "demo/DriveScript.h"
#include "fuzz/FuzzInput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    QString problem;
    const auto script = DriveScript::parse(fuzzBytes(data, size), problem);
    fuzzRequire(script.has_value() == problem.isEmpty());
    if (!script)
        return 0;
    for (const DriveAction &action : script->actions()) {
        fuzzRequire(action.milliseconds >= 0);
        for (const QPointF point : action.points)
            fuzzRequire(std::abs(point.x()) <= 10000 && std::abs(point.y()) <= 10000);
    }
    return 0;
}
