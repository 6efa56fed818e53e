// The documentation of the built-in functions, offered where callers look for it.
#include "doc/UserDocumentation.h"
#include "host/KxJsParser.h"

std::u16string KxJsParser::_getUserDocumentation(bool bStandalone, bool bWithExample) {
    return kx::userDocumentation(bStandalone, bWithExample);
}

std::vector<std::pair<std::u16string, std::u16string>> KxJsParser::_getUserDocumentation() {
    return kx::userDocumentationPages();
}
