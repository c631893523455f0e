#include "type_descriptions.h"

#include <cstring>
#include <deque>

namespace automation::detail {
namespace {

// What one description owns besides itself: its type chains, parameters and values.
class DescriptionStorage {
public:
    DescriptionStorage() = default;
    DescriptionStorage(const DescriptionStorage&) = delete;
    DescriptionStorage& operator=(const DescriptionStorage&) = delete;
    ~DescriptionStorage()
    {
        for (VARIANT& value : m_values)
            VariantClear(&value);
        for (PARAMDESCEX& extra : m_defaults)
            VariantClear(&extra.varDefaultValue);
    }

    // `type` with every node it points at copied here.
    TYPEDESC copy(const TYPEDESC& type)
    {
        TYPEDESC copied = type;
        if (type.vt == VT_PTR || type.vt == VT_SAFEARRAY) {
            copied.lptdesc = &m_types.emplace_back(copy(*type.lptdesc));
        } else if (type.vt == VT_CARRAY) {
            const std::size_t bytes =
                sizeof(ARRAYDESC) + sizeof(SAFEARRAYBOUND) * (type.lpadesc->cDims > 0 ? type.lpadesc->cDims - 1 : 0);
            auto& block = m_arrays.emplace_back(new unsigned char[bytes]);
            std::memcpy(block.get(), type.lpadesc, bytes);
            copied.lpadesc = reinterpret_cast<ARRAYDESC*>(block.get());
            copied.lpadesc->tdescElem = copy(type.lpadesc->tdescElem);
        }
        return copied;
    }

    ELEMDESC* parameters(std::size_t count) { return m_parameters.emplace_back(new ELEMDESC[count]()).get(); }
    PARAMDESCEX* defaultValue(const VARIANT& value)
    {
        PARAMDESCEX& extra = m_defaults.emplace_back();
        extra.cBytes = sizeof(PARAMDESCEX);
        VariantInit(&extra.varDefaultValue);
        VariantCopy(&extra.varDefaultValue, const_cast<VARIANT*>(&value));
        return &extra;
    }
    VARIANT* value(const VARIANT& value)
    {
        VARIANT& copied = m_values.emplace_back();
        VariantInit(&copied);
        VariantCopy(&copied, const_cast<VARIANT*>(&value));
        return &copied;
    }

private:
    std::deque<TYPEDESC> m_types;
    std::deque<std::unique_ptr<unsigned char[]>> m_arrays;
    std::deque<std::unique_ptr<ELEMDESC[]>> m_parameters;
    std::deque<PARAMDESCEX> m_defaults;
    std::deque<VARIANT> m_values;
};

// A description and its storage: the description first, so that the block is found from it.
template <class Description>
struct Block {
    Description description;
    DescriptionStorage* storage;
};

template <class Description>
Block<Description>* newBlock()
{
    auto* block = new Block<Description>{};
    block->storage = new DescriptionStorage;
    return block;
}

template <class Description>
void releaseBlock(Description* description)
{
    if (description == nullptr)
        return;
    auto* block = reinterpret_cast<Block<Description>*>(description);
    delete block->storage;
    delete block;
}

void offsetReference(TYPEDESC* type, HREFTYPE offset)
{
    for (;;) {
        switch (type->vt) {
        case VT_USERDEFINED:
            type->hreftype += offset;
            return;
        case VT_PTR:
        case VT_SAFEARRAY:
            type = type->lptdesc;
            break;
        case VT_CARRAY:
            type = &type->lpadesc->tdescElem;
            break;
        default:
            return;
        }
    }
}

}  // namespace

FUNCDESC* describeFunction(const FunctionModel& function)
{
    auto* block = newBlock<FUNCDESC>();
    DescriptionStorage& storage = *block->storage;
    FUNCDESC& description = block->description;
    description.memid = function.id;
    description.funckind = function.kind;
    description.invkind = function.invokeKind;
    description.callconv = function.callingConvention;
    description.cParams = static_cast<SHORT>(function.parameters.size());
    description.cParamsOpt = function.optionalCount;
    description.oVft = function.vtableOffset;
    description.wFuncFlags = function.flags;
    description.elemdescFunc.tdesc = storage.copy(function.result);
    if (!function.parameters.empty()) {
        description.lprgelemdescParam = storage.parameters(function.parameters.size());
        for (std::size_t p = 0; p < function.parameters.size(); ++p) {
            const ParameterModel& parameter = function.parameters[p];
            ELEMDESC& element = description.lprgelemdescParam[p];
            element.tdesc = storage.copy(parameter.type);
            element.paramdesc.wParamFlags = parameter.flags;
            if (parameter.defaultValue)
                element.paramdesc.pparamdescex = storage.defaultValue(*parameter.defaultValue);
        }
    }
    return &block->description;
}

HRESULT presentAsDispatch(FUNCDESC* function)
{
    function->funckind = FUNC_DISPATCH;
    if (function->elemdescFunc.tdesc.vt != VT_HRESULT)
        return S_OK;
    if (function->cParams > 0) {
        const ELEMDESC& last = function->lprgelemdescParam[function->cParams - 1];
        if ((last.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) {
            if (last.tdesc.vt != VT_PTR)
                return E_UNEXPECTED;
            function->elemdescFunc.tdesc = *last.tdesc.lptdesc;
            --function->cParams;
            return S_OK;
        }
    }
    function->elemdescFunc.tdesc.vt = VT_VOID;
    return S_OK;
}

void offsetReferences(FUNCDESC* function, HREFTYPE offset)
{
    offsetReference(&function->elemdescFunc.tdesc, offset);
    for (SHORT p = 0; p < function->cParams; ++p)
        offsetReference(&function->lprgelemdescParam[p].tdesc, offset);
}

VARDESC* describeVariable(const VariableModel& variable)
{
    auto* block = newBlock<VARDESC>();
    VARDESC& description = block->description;
    description.memid = variable.id;
    description.varkind = variable.kind;
    description.wVarFlags = variable.flags;
    description.elemdescVar.tdesc = block->storage->copy(variable.type);
    if (variable.kind == VAR_CONST)
        description.lpvarValue = block->storage->value(variable.value);
    else
        description.oInst = variable.instanceOffset;
    return &block->description;
}

TYPEATTR* newTypeAttributes(const TYPEDESC& alias)
{
    auto* block = newBlock<TYPEATTR>();
    block->description.tdescAlias = block->storage->copy(alias);
    return &block->description;
}

void releaseFunction(FUNCDESC* function) { releaseBlock(function); }
void releaseVariable(VARDESC* variable) { releaseBlock(variable); }
void releaseTypeAttributes(TYPEATTR* attributes) { releaseBlock(attributes); }

}  // namespace automation::detail
