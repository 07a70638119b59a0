#include "platform/desktop/desktop_attention.h"

#include <gio/gunixfdlist.h>
#include <unistd.h>

#include "platform/desktop/buses.h"

namespace corvane {

namespace {

constexpr int longest_wait = 1000;  // milliseconds for a service that does not answer
constexpr char desktop_entry[] = "application://corvane.desktop";

// A descriptor of logind: closing it, by whatever end, lets the machine sleep again.
class inhibitor : public kept_awake {
  public:
    explicit inhibitor(int descriptor) : descriptor_(descriptor) {}
    ~inhibitor() override { close(descriptor_); }
    inhibitor(const inhibitor&) = delete;
    inhibitor& operator=(const inhibitor&) = delete;

  private:
    int descriptor_;
};

}  // namespace

// What is said and heard on the session's bus.
class desktop_attention::session {
  public:
    explicit session(object_pointer<GDBusConnection> bus) : bus_(std::move(bus)) {
        clicks_ = g_dbus_connection_signal_subscribe(bus_.get(), nullptr, notifications, "ActionInvoked",
                                                     notifications_object, nullptr, G_DBUS_SIGNAL_FLAGS_NONE,
                                                     clicked, this, nullptr);
    }
    ~session() {
        g_dbus_connection_signal_unsubscribe(bus_.get(), clicks_);
        g_dbus_connection_flush_sync(bus_.get(), nullptr, nullptr);
    }
    session(const session&) = delete;
    session& operator=(const session&) = delete;

    void show_progress(double share, bool visible) {
        GVariantBuilder properties;
        g_variant_builder_init(&properties, G_VARIANT_TYPE("a{sv}"));
        g_variant_builder_add(&properties, "{sv}", "progress", g_variant_new_double(share));
        g_variant_builder_add(&properties, "{sv}", "progress-visible", g_variant_new_boolean(visible));
        g_dbus_connection_emit_signal(bus_.get(), nullptr, "/com/canonical/unity/launcherentry/1",
                                      "com.canonical.Unity.LauncherEntry", "Update",
                                      g_variant_new("(sa{sv})", desktop_entry, &properties), nullptr);
    }

    void notify(const std::string& title, const std::string& text, std::function<void()> on_click) {
        on_click_ = std::move(on_click);
        GVariantBuilder actions;
        g_variant_builder_init(&actions, G_VARIANT_TYPE("as"));
        g_variant_builder_add(&actions, "s", "default");
        g_variant_builder_add(&actions, "s", "显示");
        GVariantBuilder hints;
        g_variant_builder_init(&hints, G_VARIANT_TYPE("a{sv}"));
        g_variant_builder_add(&hints, "{sv}", "desktop-entry", g_variant_new_string("corvane"));
        GVariant* const answer = g_dbus_connection_call_sync(
            bus_.get(), notifications, notifications_object, notifications, "Notify",
            g_variant_new("(susssasa{sv}i)", "Corvane", shown_, "corvane", title.c_str(), text.c_str(),
                          &actions, &hints, -1),
            G_VARIANT_TYPE("(u)"), G_DBUS_CALL_FLAGS_NONE, longest_wait, nullptr, nullptr);
        if (answer == nullptr) return;
        g_variant_get(answer, "(u)", &shown_);
        g_variant_unref(answer);
    }

  private:
    static constexpr char notifications[] = "org.freedesktop.Notifications";
    static constexpr char notifications_object[] = "/org/freedesktop/Notifications";

    static void clicked(GDBusConnection*, const char*, const char*, const char*, const char*,
                        GVariant* arguments, void* self) {
        auto* own = static_cast<session*>(self);
        guint32 number = 0;
        if (!g_variant_is_of_type(arguments, G_VARIANT_TYPE("(us)"))) return;
        g_variant_get(arguments, "(u&s)", &number, nullptr);
        if (number == own->shown_ && own->shown_ != 0 && own->on_click_) own->on_click_();
    }

    object_pointer<GDBusConnection> bus_;
    std::function<void()> on_click_;
    guint32 shown_ = 0;  // number of the last notification
    guint clicks_ = 0;
};

desktop_attention::desktop_attention() = default;
desktop_attention::~desktop_attention() = default;

desktop_attention::session* desktop_attention::on_bus() {
    if (!asked_) {
        asked_ = true;
        if (object_pointer<GDBusConnection> bus = session_bus(nullptr))
            session_ = std::make_unique<session>(std::move(bus));
    }
    return session_.get();
}

std::unique_ptr<kept_awake> desktop_attention::keep_awake(const std::string& reason) {
    const object_pointer<GDBusConnection> bus = system_bus(nullptr);
    if (!bus) return nullptr;
    GUnixFDList* descriptors = nullptr;
    GVariant* const answer = g_dbus_connection_call_with_unix_fd_list_sync(
        bus.get(), "org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager",
        "Inhibit", g_variant_new("(ssss)", "idle:sleep", "Corvane", reason.c_str(), "block"),
        G_VARIANT_TYPE("(h)"), G_DBUS_CALL_FLAGS_NONE, longest_wait, nullptr, &descriptors, nullptr, nullptr);
    if (answer == nullptr) return nullptr;
    gint32 index = -1;
    g_variant_get(answer, "(h)", &index);
    g_variant_unref(answer);
    const int descriptor = descriptors != nullptr ? g_unix_fd_list_get(descriptors, index, nullptr) : -1;
    if (descriptors != nullptr) g_object_unref(descriptors);
    return descriptor < 0 ? nullptr : std::make_unique<inhibitor>(descriptor);
}

void desktop_attention::show_progress(double share) {
    if (session* bus = on_bus()) bus->show_progress(share, true);
}

void desktop_attention::hide_progress() {
    if (session* bus = on_bus()) bus->show_progress(0, false);
}

void desktop_attention::notify(const std::string& title, const std::string& text,
                               std::function<void()> on_click) {
    if (session* bus = on_bus()) bus->notify(title, text, std::move(on_click));
}

}  // namespace corvane
