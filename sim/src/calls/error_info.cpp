#include "calls/error_info.h"

namespace sim::detail {

void setErrorInformation(const IID& iid, const std::wstring& source, const std::wstring& description)
{
    ICreateErrorInfo* creator = nullptr;
    if (FAILED(CreateErrorInfo(&creator)))
        return;  // the caller still gets the status
    std::wstring sourceText = source;
    std::wstring descriptionText = description;
    creator->SetGUID(iid);
    creator->SetSource(sourceText.data());
    creator->SetDescription(descriptionText.data());
    IErrorInfo* info = nullptr;
    if (SUCCEEDED(creator->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&info)))) {
        SetErrorInfo(0, info);
        info->Release();
    }
    creator->Release();
}

}  // namespace sim::detail
