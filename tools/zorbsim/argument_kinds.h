// How the parameters and results of the module's exported operations cross between a scenario's
// JSON and a real call. Each C++ type that appears in an exported signature has one ArgumentKind
// (or ResultKind): the name `zorbsim ops` shows, whether the call may write it (a reference), the
// value held for the call, and the conversions. An operation whose signature uses a type without a kind does
// not compile into the table: that type needs its kind here first.
#pragma once

#include "automation_failure.h"
#include "input_error.h"
#include "json_values.h"

#include "ZORBAppUtilities.h"

#include "MxtArray"
#include "MxtString"
#include "automation.h"
#include "automation/utf8.h"
#include "host/object_model.h"
#include "host/plot_settings.h"
#include "host/sdk.h"
#include "sim/journal.h"

#include <nlohmann/json.hpp>

#include <climits>

#include <string>

namespace zorbsim {

// Value types: read() takes a scenario's JSON (failing with its place), write() gives the JSON the
// report shows.

struct MxtStringValue {
    using Held = MxtString;
    static constexpr const char* plural = "strings";
    static Held read(const nlohmann::json& value, const InputPlace& place)
    {
        return MxtString(place.read(value).text().c_str());
    }
    static nlohmann::json write(const Held& held) { return automation_text::toUtf8(held.getStringW()); }
};

struct BstrValue {
    using Held = _bstr_t;
    static Held read(const nlohmann::json& value, const InputPlace& place)
    {
        return _bstr_t(place.read(value).text().c_str());
    }
    static nlohmann::json write(const Held& held)
    {
        return automation_text::toUtf8(std::wstring_view(
            static_cast<const wchar_t*>(held) ? static_cast<const wchar_t*>(held) : L"", held.length()));
    }
};

// {"index": 3, "label": "&Beams...", "macro": "^C^C_MXBEAM"}, every member given: an item is never
// added with a default the scenario did not write.
struct MenuItemValue {
    using Held = ZORBAppUtilities::ZORBMenuItem;
    static constexpr const char* plural = "menu items";
    static Held read(const nlohmann::json& value, const InputPlace& place)
    {
        if (!value.is_object())
            place.fail("expected a menu item {\"index\": n, \"label\": \"...\", \"macro\": \"...\"}");
        const sim::JsonReader reader = place.read(value);
        reader.expectObject({"index", "label", "macro"});
        Held item;
        item.index = readInt32(reader.required("index"));
        item.label = MxtString(reader.required("label").text().c_str());
        item.macro = MxtString(reader.required("macro").text().c_str());
        return item;
    }
    static nlohmann::json write(const Held& held)
    {
        return {{"index", held.index},
                {"label", MxtStringValue::write(held.label)},
                {"macro", MxtStringValue::write(held.macro)}};
    }
};

// An array of Element values; each element fails at its own index.
template <class Element> struct ArrayValue {
    using Held = MxtArray<typename Element::Held>;
    static Held read(const nlohmann::json& value, const InputPlace& place)
    {
        if (!value.is_array())
            place.fail(std::string("expected an array of ") + Element::plural);
        if (value.size() > static_cast<std::size_t>(INT_MAX))
            place.fail("more elements than an array of the core library holds");
        // Storage for all at once: the array would otherwise grow by eight at a time, copying
        // everything each time.
        Held elements;
        elements.setPhysicalLength(static_cast<int>(value.size()));
        for (std::size_t i = 0; i < value.size(); ++i)
            elements.add(Element::read(value[i], place / i));
        return elements;
    }
    static nlohmann::json write(const Held& held)
    {
        nlohmann::json elements = nlohmann::json::array();
        for (int i = 0; i < held.getLength(); ++i)
            elements.push_back(Element::write(held[i]));
        return elements;
    }
};

struct BooleanValue {
    using Held = bool;
    static Held read(const nlohmann::json& value, const InputPlace& place)
    {
        return place.read(value).boolean();
    }
    static nlohmann::json write(Held held) { return held; }
};

// A `long` crosses the host interfaces as a 32-bit number on every build, so a scenario's value is
// held to 32 bits even where `long` is wider.
struct LongValue {
    using Held = long;
    static Held read(const nlohmann::json& value, const InputPlace& place) { return readInt32(place.read(value)); }
    static nlohmann::json write(Held held) { return held; }
};

// [x, y], made into the host's point variant with the SDK's ZbAxPoint2d, as MX code makes it.
struct PointValue {
    using Held = _variant_t;
    static Held read(const nlohmann::json& value, const InputPlace& place)
    {
        if (!value.is_array() || value.size() != 2)
            place.fail("expected a point [x, y]");
        const std::vector<sim::JsonReader> coordinates = place.read(value).elements();
        ZbAxPoint2d point(coordinates[0].real(), coordinates[1].real());
        return _variant_t(point.asVariantPtr());
    }
    static nlohmann::json write(const Held& held)
    {
        if (V_VT(&held) != (VT_ARRAY | VT_R8))
            return nullptr;
        double* coordinates = nullptr;
        SafeArrayAccessData(V_ARRAY(&held), reinterpret_cast<void**>(&coordinates));
        const nlohmann::json point = {coordinates[0], coordinates[1]};
        SafeArrayUnaccessData(V_ARRAY(&held));
        return point;
    }
};

struct DoubleValue {
    using Held = double;
    static Held read(const nlohmann::json& value, const InputPlace& place)
    {
        return place.read(value).real();
    }
    static nlohmann::json write(Held held) { return held; }
};

// The host's plot area numbers pass through unchanged, so any number is taken.
struct PlotTypeValue {
    using Held = ZbDbPlotSettings::PlotType;
    static Held read(const nlohmann::json& value, const InputPlace& place)
    {
        return static_cast<Held>(readInt32(place.read(value)));
    }
    static nlohmann::json write(Held held) { return static_cast<int>(held); }
};

// Parameters. Every kind passes its held value to the call; a writable one (a reference) is read
// back afterwards unless the operation declares it an input.

template <class Value, bool writable> struct ParameterKind : Value {
    static constexpr bool isWritable = writable;
    static typename Value::Held& pass(typename Value::Held& held) { return held; }
    // An expected output value must have the shape of a starting value.
    static void checkOutcome(const nlohmann::json& value, const InputPlace& place)
    {
        (void)Value::read(value, place);
    }
};

template <class Parameter> struct ArgumentKind;

template <> struct ArgumentKind<const MxtString&> : ParameterKind<MxtStringValue, false> {
    static constexpr const char* name = "string";
};
template <> struct ArgumentKind<MxtString&> : ParameterKind<MxtStringValue, true> {
    static constexpr const char* name = "string";
};
template <> struct ArgumentKind<const _bstr_t&> : ParameterKind<BstrValue, false> {
    static constexpr const char* name = "string";
};
template <> struct ArgumentKind<_bstr_t&> : ParameterKind<BstrValue, true> {
    static constexpr const char* name = "string";
};
template <>
struct ArgumentKind<const MxtArray<MxtString>&> : ParameterKind<ArrayValue<MxtStringValue>, false> {
    static constexpr const char* name = "string array";
};
template <>
struct ArgumentKind<const MxtArray<ZORBAppUtilities::ZORBMenuItem>&>
    : ParameterKind<ArrayValue<MenuItemValue>, false> {
    static constexpr const char* name = "menu item array";
};
template <> struct ArgumentKind<bool> : ParameterKind<BooleanValue, false> {
    static constexpr const char* name = "bool";
};
template <> struct ArgumentKind<long> : ParameterKind<LongValue, false> {
    static constexpr const char* name = "long";
};
template <> struct ArgumentKind<long&> : ParameterKind<LongValue, true> {
    static constexpr const char* name = "long";
};
template <> struct ArgumentKind<const _variant_t&> : ParameterKind<PointValue, false> {
    static constexpr const char* name = "point";
};
template <> struct ArgumentKind<double> : ParameterKind<DoubleValue, false> {
    static constexpr const char* name = "double";
};
template <> struct ArgumentKind<ZbDbPlotSettings::PlotType> : ParameterKind<PlotTypeValue, false> {
    static constexpr const char* name = "plot type";
};

// An object the module hands out with a reference for the caller; the held smart pointer releases
// it once the call is reported. The report shows "IDispatch", or null when none came.
template <> struct ArgumentKind<IDispatch**> {
    static constexpr const char* name = "object";
    static constexpr bool isWritable = true;
    using Held = IDispatchPtr;
    static Held read(const nlohmann::json& value, const InputPlace& place)
    {
        if (!value.is_null())
            place.fail("an output object starts as null");
        return Held();
    }
    static nlohmann::json write(const Held& held)
    {
        return held ? nlohmann::json("IDispatch") : nlohmann::json();
    }
    static IDispatch** pass(Held& held) { return &held; }
    static void checkOutcome(const nlohmann::json& value, const InputPlace& place)
    {
        if (!value.is_null() && value != "IDispatch")
            place.fail("expected \"IDispatch\" or null");
    }
};

// Results.

template <class Value> struct ResultOf : Value {
    static void check(const nlohmann::json& value, const InputPlace& place)
    {
        (void)Value::read(value, place);
    }
};

template <class Result> struct ResultKind;

template <> struct ResultKind<bool> : ResultOf<BooleanValue> {
    static constexpr const char* name = "bool";
};
template <> struct ResultKind<long> : ResultOf<LongValue> {
    static constexpr const char* name = "long";
};
template <> struct ResultKind<MxtString> : ResultOf<MxtStringValue> {
    static constexpr const char* name = "string";
};

// A status code that an operation returns in a `long`; shown in hex with the platform's text for
// it, as every status is.
struct StatusCode {
    long code = 0;
};

template <> struct ResultKind<StatusCode> {
    static constexpr const char* name = "status";
    static nlohmann::json write(StatusCode status) { return sim::statusInHex(static_cast<HRESULT>(status.code)); }
    static void check(const nlohmann::json& value, const InputPlace& place)
    {
        (void)readStatusCode(place.read(value));
    }
    static std::string display(const nlohmann::json& value)
    {
        return statusWithMessage(readStatusCode(InputPlace("status").read(value)));
    }
};

// The one untyped pointer the module returns is the host application, with a reference for the
// caller; it is released here. The report shows "HostApplication", or null.
template <> struct ResultKind<void*> {
    static constexpr const char* name = "application object";
    static nlohmann::json write(void* object)
    {
        const HostApplicationPtr application(static_cast<HostApplication*>(object), false);
        return application ? nlohmann::json("HostApplication") : nlohmann::json();
    }
    static void check(const nlohmann::json& value, const InputPlace& place)
    {
        if (!value.is_null() && value != "HostApplication")
            place.fail("expected \"HostApplication\" or null");
    }
};

}  // namespace zorbsim
