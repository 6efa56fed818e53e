// A complete request of a compiled client. The header and the identifiers are made from the type
// library; run-cpp compiles this file.

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
    /// For an output argument. Frees the earlier text.
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

// All methods return S_OK here: a failed script sets an error text. Other codes mean a null pointer
// or a failure of the library, such as a lack of memory.
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
    if (index < 0) {
        print("", error);
        return;
    }
    std::printf("Script:     %ld\n", index);
    Text result;
    parser->execute(index, error.receive(), result.receive());
    print("A = 5:      ", result);

    // A compiled script reads the current values: it can run again with other values.
    parser->addSetVariableLong(name, 1, &stored);
    parser->execute(index, error.receive(), result.receive());
    print("A = 1:      ", result);

    // An error is a text. Its line number includes one line for each variable of the script.
    parser->convert(Text(L"ROUND(A, B)"), script.receive());
    parser->parse(script, error.receive(), &index);
    if (index >= 0) parser->execute(index, error.receive(), result.receive());
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
