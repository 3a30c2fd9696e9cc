// What GStreamer knows beyond the sinks: the cards that answer with their
// modes, and the frames of a file that the file output wrote.
#include <gst/app/gstappsink.h>
#include <gst/gst.h>

#include <cstring>
#include <set>
#include <tuple>

#include "board/gst_output.h"

namespace orv {

namespace {

constexpr const char* CARD_ELEMENT = "decklinkvideosink";

// The modes in a card's caps, as rows of the mode table: BGRA structures
// only, each size, rate and scan once.
std::vector<CfgVideo> ModesFromCaps(GstCaps* caps) {
    std::vector<CfgVideo> modes;
    std::set<std::tuple<int, int, int64_t, uint32_t>> seen;
    for (guint i = 0; caps && i < gst_caps_get_size(caps); ++i) {
        const GstStructure* s = gst_caps_get_structure(caps, i);
        const char* format = gst_structure_get_string(s, "format");
        const char* interlace = gst_structure_get_string(s, "interlace-mode");
        int width = 0, height = 0, num = 0, den = 1;
        if (!format || std::strcmp(format, "BGRA") != 0 ||
            !gst_structure_get_int(s, "width", &width) ||
            !gst_structure_get_int(s, "height", &height) ||
            !gst_structure_get_fraction(s, "framerate", &num, &den) || num <= 0 || den <= 0 ||
            width > 1920 || height > 1080)
            continue;
        // Whole rates truncate, the others round: the durations cards report.
        const int64_t scaled = 10'000'000LL * den;
        const int64_t duration = den == 1 ? scaled / num : (scaled + num / 2) / num;
        const bool fields = interlace && std::strcmp(interlace, "progressive") != 0;
        CfgVideo mode = MakeVideoMode(width, height, duration);
        if (!fields && ModeSendsFields(mode)) {
            // Standard definition goes out as fields only; a whole-frame 1080
            // mode is told from its interlaced twin by the flag.
            if (height != 1080) continue;
            mode.nFlags = VIDEO_PROGRESSIVE;
        }
        if (seen.insert({width, height, duration, mode.nFlags}).second) modes.push_back(mode);
    }
    return modes;
}

bool IsCard(GstDevice* device, int& number) {
    GstElement* element = gst_device_create_element(device, nullptr);
    if (!element) return false;
    GstElementFactory* factory = gst_element_get_factory(element);
    const bool card =
        factory &&
        std::strcmp(gst_plugin_feature_get_name(GST_PLUGIN_FEATURE(factory)), CARD_ELEMENT) == 0;
    if (card) g_object_get(element, "device-number", &number, nullptr);
    gst_object_unref(element);
    return card;
}

}  // namespace

std::vector<UstCardInfo> DiscoverCards() {
    std::vector<UstCardInfo> cards;
    if (!InitGStreamer() || !gst_element_factory_find(CARD_ELEMENT)) return cards;
    GstDeviceMonitor* monitor = gst_device_monitor_new();
    gst_device_monitor_add_filter(monitor, "Video/Sink", nullptr);
    GList* devices = gst_device_monitor_get_devices(monitor);
    for (GList* l = devices; l; l = l->next) {
        auto* device = GST_DEVICE(l->data);
        UstCardInfo info;
        if (!IsCard(device, info.nDevice)) continue;
        gchar* name = gst_device_get_display_name(device);
        info.strName = QString::fromUtf8(name);
        g_free(name);
        GstCaps* caps = gst_device_get_caps(device);
        info.modes = ModesFromCaps(caps);
        if (caps) gst_caps_unref(caps);
        cards.push_back(std::move(info));
    }
    g_list_free_full(devices, gst_object_unref);
    gst_object_unref(monitor);
    return cards;
}

bool ReadVideoFile(const std::string& path,
                   const std::function<bool(const uint32_t*, int, int)>& each, std::string& error) {
    if (!InitGStreamer(&error)) return false;
    GError* parseError = nullptr;
    GstElement* pipeline = gst_parse_launch(
        "filesrc name=in ! decodebin ! videoconvert ! video/x-raw,format=BGRA ! "
        "appsink name=sink sync=false",
        &parseError);
    if (parseError) {
        error = parseError->message;
        g_error_free(parseError);
        if (pipeline) gst_object_unref(pipeline);
        return false;
    }
    GstElement* in = gst_bin_get_by_name(GST_BIN(pipeline), "in");
    GstElement* sink = gst_bin_get_by_name(GST_BIN(pipeline), "sink");
    g_object_set(in, "location", path.c_str(), nullptr);
    gst_element_set_state(pipeline, GST_STATE_PLAYING);
    bool more = true;
    while (more) {
        GstSample* sample = gst_app_sink_pull_sample(GST_APP_SINK(sink));
        if (!sample) break;
        const GstStructure* s = gst_caps_get_structure(gst_sample_get_caps(sample), 0);
        int width = 0, height = 0;
        gst_structure_get_int(s, "width", &width);
        gst_structure_get_int(s, "height", &height);
        GstMapInfo map;
        GstBuffer* buffer = gst_sample_get_buffer(sample);
        if (gst_buffer_map(buffer, &map, GST_MAP_READ)) {
            if (map.size == static_cast<size_t>(width) * height * 4)
                more = each(reinterpret_cast<const uint32_t*>(map.data), width, height);
            gst_buffer_unmap(buffer, &map);
        }
        gst_sample_unref(sample);
    }
    GstBus* bus = gst_element_get_bus(pipeline);
    if (GstMessage* msg = gst_bus_pop_filtered(bus, GST_MESSAGE_ERROR)) {
        GError* err = nullptr;
        gst_message_parse_error(msg, &err, nullptr);
        error = err ? err->message : "the file could not be read";
        if (err) g_error_free(err);
        gst_message_unref(msg);
    }
    gst_object_unref(bus);
    gst_element_set_state(pipeline, GST_STATE_NULL);
    gst_object_unref(in);
    gst_object_unref(sink);
    gst_object_unref(pipeline);
    return error.empty();
}

}  // namespace orv
