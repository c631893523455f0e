// What typelib_import writes for the cases the host's library does not hold, through a painter
// that records what its raw methods receive.
#include "import_cases.h"
#include "import_cases_members.h"

#include "automation/com_object.h"
#include "untyped_dispatch.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace {

class RecordingPainter final : public automation::ComObject<RecordingPainter, EarlyBoundOnly<Painter>> {
public:
    long step = 0;
    _bstr_t label;
    VARIANT_BOOL loud = VARIANT_FALSE;
    Shade shade = shadeLight;
    _variant_t where;
    IDispatchPtr target;

    void* interfaceFor(REFIID iid)
    {
        if (iid == __uuidof(IUnknown) || iid == __uuidof(IDispatch) || iid == __uuidof(Painter))
            return static_cast<Painter*>(this);
        return nullptr;
    }


    HRESULT STDMETHODCALLTYPE raw_Count(long stepGiven, BSTR labelGiven, VARIANT_BOOL loudGiven,
                                        long* counted) override
    {
        step = stepGiven;
        label = labelGiven;
        loud = loudGiven;
        *counted = stepGiven * 2;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE raw_Paint(Shade shadeGiven, VARIANT whereGiven, Shade* previous) override
    {
        *previous = shade;
        shade = shadeGiven;
        where = whereGiven;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE putref_Target(IDispatch* given) override
    {
        target = given;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_Target(IDispatch** given) override
    {
        *given = IDispatchPtr(target).Detach();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE raw_Secret() override { return E_ACCESSDENIED; }
};

struct ImportedHeader : ::testing::Test {
    RecordingPainter* recorder = new RecordingPainter;
    PainterPtr painter{recorder, false};
};

TEST_F(ImportedHeader, WrappersPassTheLibrarysDefaultValuesAndTheCallersOwn)
{
    EXPECT_EQ(painter->Count(), 14);
    EXPECT_EQ(recorder->step, 7);
    EXPECT_EQ(std::wstring(recorder->label), L"say \"hi\"\\");
    EXPECT_EQ(recorder->loud, VARIANT_TRUE);

    EXPECT_EQ(painter->Count(3, L"quiet", VARIANT_FALSE), 6);
    EXPECT_EQ(recorder->step, 3);
    EXPECT_EQ(std::wstring(recorder->label), L"quiet");
    EXPECT_EQ(recorder->loud, VARIANT_FALSE);
}

TEST_F(ImportedHeader, EnumerationsCrossAsTheirValuesAndALeftOutVariantIsMissing)
{
    EXPECT_EQ(painter->Paint(shadeDark), shadeLight);
    EXPECT_EQ(static_cast<int>(recorder->shade), -2);
    EXPECT_EQ(V_VT(&recorder->where), VT_ERROR);
    EXPECT_EQ(V_ERROR(&recorder->where), DISP_E_PARAMNOTFOUND);

    EXPECT_EQ(painter->Paint(shadeLight, _variant_t(5L)), shadeDark);
    EXPECT_EQ(V_VT(&recorder->where), VT_I4);
}

TEST_F(ImportedHeader, ADispatchResultIsTheCallersReferenceAndAPutByReferenceKeepsTheObject)
{
    PainterPtr other(new RecordingPainter, false);
    painter->PutRefTarget(other);
    const IDispatchPtr given = painter->GetTarget();
    EXPECT_EQ(given.GetInterfacePtr(), static_cast<IDispatch*>(other.GetInterfacePtr()));
    recorder->target = nullptr;
    EXPECT_EQ(other->AddRef(), 3u);  // ours, and the one `given` holds
    other->Release();
}

TEST_F(ImportedHeader, AFailedStatusIsRaisedWithItsInterface)
{
    try {
        painter->Secret();
        FAIL() << "no failure raised";
    }
    catch (const _com_error& failure) {
        EXPECT_EQ(failure.Error(), E_ACCESSDENIED);
    }
}

TEST(ImportedIdentifiers, KeepTheLibrarysByteOrder)
{
    const IID painter = {0x3c0d8a51, 0x95e4, 0x4f1b, {0xb2, 0xa6, 0x7d, 0x1e, 0x0f, 0x9c, 0x4a, 0x83}};
    EXPECT_TRUE(IsEqualGUID(__uuidof(Painter), painter));
    const GUID library = {0xbf257e5f, 0xe22a, 0x4baa, {0x89, 0x16, 0x52, 0x55, 0x64, 0x19, 0xe2, 0x60}};
    EXPECT_TRUE(IsEqualGUID(LIBID_ImportCases, library));
}

TEST(ImportedMembers, NameEachCallAsTheJournalDoesWithTheVariantTypeItGives)
{
    EXPECT_STREQ(case_members::Painter::putref_Target.name, "Painter.putref_Target");
    EXPECT_EQ(case_members::Painter::putref_Target.gives, VT_EMPTY);
    EXPECT_STREQ(case_members::Painter::get_Target.name, "Painter.get_Target");
    EXPECT_EQ(case_members::Painter::get_Target.gives, VT_DISPATCH);
    EXPECT_STREQ(case_members::Painter::Paint.name, "Painter.Paint");
    EXPECT_EQ(case_members::Painter::Paint.gives, VT_I4);
    EXPECT_EQ(std::size(case_members::all), 5u);
}

TEST(ImportedReference, ShowsDefaultsOptionalParametersFlagsAndDocStrings)
{
    std::ifstream file(MX_IMPORTED_REFERENCE, std::ios::binary);
    const std::string reference(std::istreambuf_iterator<char>(file), {});
    for (const char* expected :
         {"# ImportCases 2.3\n", "### Painter\n\nTakes defaults\n\nDual interface",
          "| 1 | `Count` | method | `step` long (optional, default 7), `label` BSTR (optional, default \"say "
          "\"hi\"\\\"), "
          "`loud` VARIANT_BOOL (optional, default True) | long | Counts in steps \\| twice |\n",
          "`where` VARIANT (optional) | Shade |",
          "| 4 | `Secret` | method |  | nothing | restricted; hidden |\n", "| `shadeDark` | -2 |  |\n"})
        EXPECT_NE(reference.find(expected), std::string::npos) << expected;
    EXPECT_EQ(reference.find('\r'), std::string::npos);
}

}  // namespace
