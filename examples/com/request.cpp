// One request from end to end, as a compiled client makes it. The header and the identifiers come
// out of the type library; see run-cpp for the command that compiles this file.

#include <cstdio>
#include <string>
#include <windows.h>

#include "KxJsParserLib.h"

namespace {

/// A BSTR that is freed at the end of its scope.
class Text {
  public:
    Text() = default;
    explicit Text(wchar_t const* text) : text_(SysAllocString(text)) {}
    ~Text() { SysFreeString(text_); }
    Text(Text const&) = delete;
    Text& operator=(Text const&) = delete;

    operator BSTR() const { return text_; }
    /// For calls that give a new text; an earlier one is freed.
    BSTR* receive() {
        SysFreeString(text_);
        text_ = nullptr;
        return &text_;
    }

  private:
    BSTR text_ = nullptr;
};

void print(char const* label, BSTR text) {
    std::string narrow(4 * SysStringLen(text) + 1, '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, narrow.data(), static_cast<int>(narrow.size()),
                        nullptr, nullptr);
    std::printf("%s%s\n", label, narrow.c_str());
}

// Every method answers S_OK here: failures of scripts are texts, and the others are null pointers
// and memory that ends.
void runRequest(IKxJsParserX* parser) {
    parser->initialize();

    // A formula of the older language becomes JavaScript.
    Text script;
    parser->convert(Text(L"IIF(A>2,'OK','KO')"), script.receive());
    print("JavaScript: ", script);

    // Variables are bound before parsing.
    Text const name(L"A");
    VARIANT_BOOL stored = VARIANT_FALSE;
    parser->addSetVariableLong(name, 5, &stored);
    Text error;
    LONG index = -1;
    parser->parse(script, error.receive(), &index);
    std::printf("Script:     %ld\n", index);
    Text result;
    parser->execute(index, error.receive(), result.receive());
    print("A = 5:      ", result);

    // A compiled script reads the values of the moment, so it can run again with others.
    parser->addSetVariableLong(name, 1, &stored);
    parser->execute(index, error.receive(), result.receive());
    print("A = 1:      ", result);

    // Failures come back as texts. The line counts the variables that the script uses.
    parser->convert(Text(L"ROUND(A, B)"), script.receive());
    parser->parse(script, error.receive(), &index);
    parser->execute(index, error.receive(), result.receive());
    print("", error);
}

}  // namespace

int main() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    IKxJsParserX* parser = nullptr;
    HRESULT const outcome = CoCreateInstance(CLSID_KxJsParserX, nullptr, CLSCTX_INPROC_SERVER,
                                             IID_IKxJsParserX, reinterpret_cast<void**>(&parser));
    if (FAILED(outcome)) {
        std::fprintf(stderr, "The server is not registered: 0x%08lx\n",
                     static_cast<unsigned long>(outcome));
        CoUninitialize();
        return 1;
    }
    runRequest(parser);
    parser->Release();
    CoUninitialize();
    return 0;
}
