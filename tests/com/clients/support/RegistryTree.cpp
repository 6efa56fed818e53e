#include "RegistryTree.h"

namespace test {

namespace {

constexpr DWORD longestName = 16384;

std::wstring valueText(DWORD type, std::vector<BYTE> const& data) {
    std::wstring text = std::to_wstring(type) + L":";
    if (type != REG_SZ && type != REG_EXPAND_SZ) {
        for (BYTE const byte : data) text += std::to_wstring(byte) + L" ";
        return text;
    }
    std::wstring const content(reinterpret_cast<wchar_t const*>(data.data()),
                               data.size() / sizeof(wchar_t));
    return text + content.substr(0, content.find(L'\0'));
}

std::wstring joined(std::wstring left, wchar_t const* between, std::wstring const& right) {
    left += between;
    left += right;
    return left;
}

std::wstring lowerCase(std::wstring text) {
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

void readValues(HKEY key, std::wstring const& path, RegistryTree& tree) {
    std::vector<wchar_t> name(longestName);
    for (DWORD index = 0;; ++index) {
        DWORD nameSize = longestName;
        DWORD type = 0;
        DWORD dataSize = 0;
        if (RegEnumValueW(key, index, name.data(), &nameSize, nullptr, &type, nullptr, &dataSize) !=
            ERROR_SUCCESS) {
            return;
        }
        std::vector<BYTE> data(dataSize);
        RegQueryValueExW(key, name.data(), nullptr, nullptr, data.data(), &dataSize);
        data.resize(dataSize);
        tree[path + L"\\\\" + lowerCase(name.data())] = valueText(type, data);
    }
}

void readKey(HKEY key, std::wstring const& path, RegistryTree& tree) {
    if (!path.empty()) tree[path] = L"";
    readValues(key, path, tree);
    std::vector<wchar_t> name(longestName);
    for (DWORD index = 0;; ++index) {
        DWORD size = longestName;
        if (RegEnumKeyExW(key, index, name.data(), &size, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS) {
            return;
        }
        std::wstring const child = lowerCase(name.data());
        if (child == L"wow6432node") continue;
        HKEY childKey = nullptr;
        if (RegOpenKeyExW(key, name.data(), 0, KEY_READ, &childKey) != ERROR_SUCCESS) continue;
        readKey(childKey, path.empty() ? child : joined(path, L"\\", child), tree);
        RegCloseKey(childKey);
    }
}

}  // namespace

RegistryTree readRegistry(std::wstring const& path) {
    RegistryTree tree;
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return tree;
    }
    readKey(key, lowerCase(path), tree);
    RegCloseKey(key);
    return tree;
}

RegistryTree lowerCase(RegistryTree const& tree) {
    RegistryTree lowered;
    for (auto const& [name, text] : tree) lowered[lowerCase(name)] = text;
    return lowered;
}

std::vector<std::wstring> differences(RegistryTree const& before, RegistryTree const& after) {
    std::vector<std::wstring> lines;
    for (auto const& [entry, text] : before) {
        auto const found = after.find(entry);
        if (found == after.end() || found->second != text) {
            lines.push_back(L"- " + joined(entry, L" = ", text));
        }
    }
    for (auto const& [entry, text] : after) {
        auto const found = before.find(entry);
        if (found == before.end() || found->second != text) {
            lines.push_back(L"+ " + joined(entry, L" = ", text));
        }
    }
    return lines;
}

}  // namespace test
