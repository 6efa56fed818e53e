#include "com/Bridge.h"

#include "com/bridge/Calls.h"

namespace kx {
namespace {

Bridge const table = {
    .create = &bridge::create,
    .destroy = &bridge::destroy,
    .initialize = &bridge::initialize,
    .reset = &bridge::reset,
    .variableExist = &bridge::variableExist,
    .getVariableType = &bridge::getVariableType,
    .addSetString = &bridge::addSetString,
    .addSetLong = &bridge::addSetLong,
    .addSetDouble = &bridge::addSetDouble,
    .addSetBool = &bridge::addSetBool,
    .parse = &bridge::parse,
    .execute = &bridge::execute,
    .convert = &bridge::convert,
    .extractVariable = &bridge::extractVariable,
    .documentationOnePage = &bridge::documentationOnePage,
    .documentationManyPages = &bridge::documentationManyPages,
    .catalogue = &bridge::catalogue,
};

}  // namespace
}  // namespace kx

extern "C" KX_BRIDGE_CALL kx::Bridge const* kxJsParserBridge(std::uint32_t version) {
    return version == kx::bridgeVersion ? &kx::table : nullptr;
}
