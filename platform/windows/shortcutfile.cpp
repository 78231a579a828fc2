// SPDX-License-Identifier: MIT
#include "platform/windows/shortcutfile.h"

#include "system/path.h"
#include "system/windows/widepath.h"

#include <memory>
#include <system_error>
#include <windows.h>

#include <objbase.h>
#include <shlguid.h>
#include <shlobj.h>

namespace halvane {
namespace {

void require(HRESULT result, const char* what) {
    if (FAILED(result))
        throw std::system_error(static_cast<int>(result), std::system_category(), what);
}

/// COM for the present thread while the object lives.
class Com {
public:
    Com() : answer_(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;
    ~Com() {
        if (SUCCEEDED(answer_))
            ::CoUninitialize();
    }

private:
    HRESULT answer_;
};

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using Com_pointer = std::unique_ptr<Interface, Release>;

Com_pointer<IShellLinkW> new_link() {
    void* made = nullptr;
    require(::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, &made),
            "the shell's shortcut");
    return Com_pointer<IShellLinkW>(static_cast<IShellLinkW*>(made));
}

Com_pointer<IPersistFile> file_of(IShellLinkW& link) {
    void* file = nullptr;
    require(link.QueryInterface(IID_IPersistFile, &file), "the shortcut's file");
    return Com_pointer<IPersistFile>(static_cast<IPersistFile*>(file));
}

} // namespace

std::string startup_folder() {
    std::wstring path(MAX_PATH, L'\0');
    require(::SHGetFolderPathW(nullptr, CSIDL_STARTUP | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT,
                               path.data()),
            "the start-up folder");
    path.resize(path.find(L'\0'));
    return narrow(path);
}

void write_shortcut(const std::string& folder, const LinkFields& fields) {
    const Com com;
    const Com_pointer<IShellLinkW> link = new_link();
    require(link->SetPath(wide(fields.target).c_str()), "the target");
    require(link->SetWorkingDirectory(wide(fields.working_folder).c_str()), "the working folder");
    require(link->SetShowCmd(fields.show_command), "the window");
    require(link->SetIconLocation(wide(fields.icon_file).c_str(), fields.icon_number), "the icon");
    require(file_of(*link)->Save(path_of(joined_path(folder, fields.file_name)).c_str(), TRUE),
            "the shortcut");
}

} // namespace halvane
