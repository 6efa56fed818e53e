#include "ObjectMap.h"

#include "KxJsParserX.h"
#include "Registration.h"

namespace kx {

constinit ObjectMap objectMap = {
    {{CLSID_KxJsParserX, &updateClassRegistry, &ClassFactory::create, &KxJsParserX::create}}};

}  // namespace kx
