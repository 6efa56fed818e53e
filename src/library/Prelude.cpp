#include "library/Prelude.h"

namespace {

constexpr char16_t const* kDefineRight =
    u"String.prototype.right=function(n1)"
    u"{if(n1==0)return '';return this.substr(-n1,this.length);};\n";

// A function that is converted to text is called instead. LISTFUNCT needs the texts of functions:
// it restores V8's own conversion while it runs.
constexpr char16_t const* kCallFunctionsInsteadOfPrinting =
    u"oldToStringFunctionProto = Function.prototype.toString;"
    u"newToStringFunctionProto = function() {return this();};"
    u"Function.prototype.toString = newToStringFunctionProto;\n";

}  // namespace

std::vector<std::u16string> buildPrelude() {
    return {
        u"String.prototype.ltrim = function() { return this.replace(/^\\s+/g, ''); };\n",
        u"String.prototype.rtrim = function() { return this.replace(/\\s+$/g, ''); };\n",
        u"String.prototype.trim = function() { return this.replace(/^\\s+|\\s+$/g, ''); };\n",
        u"String.prototype.left=function(n1){return this.substr(0,n1);};\n",
        kDefineRight,
        kCallFunctionsInsteadOfPrinting,
    };
}
