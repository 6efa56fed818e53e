#include <gtest/gtest.h>

#include "library/Prelude.h"

namespace {

TEST(Prelude, IsSixStatementsOfOneLineEach) {
    std::vector<std::u16string> const expected = {
        uR"(String.prototype.ltrim = function() { return this.replace(/^\s+/g, ''); };
)",
        uR"(String.prototype.rtrim = function() { return this.replace(/\s+$/g, ''); };
)",
        uR"(String.prototype.trim = function() { return this.replace(/^\s+|\s+$/g, ''); };
)",
        uR"(String.prototype.left=function(n1){return this.substr(0,n1);};
)",
        uR"(String.prototype.right=function(n1){if(n1==0)return '';return this.substr(-n1,this.length);};
)",
        uR"(oldToStringFunctionProto = Function.prototype.toString;newToStringFunctionProto = function() {return this();};Function.prototype.toString = newToStringFunctionProto;
)",
    };
    EXPECT_EQ(buildPrelude(), expected);
}

}  // namespace
