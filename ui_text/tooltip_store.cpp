#include "ui_text/tooltip_store.h"

#include <algorithm>
#include <unordered_map>

#include "core/model/main_form.h"

namespace corvane {

namespace {

std::vector<control*> by_name(const form_model& window) {
    std::vector<control*> found;
    for (const auto& each : window.controls()) found.push_back(each.get());
    std::sort(found.begin(), found.end(),
              [](const control* left, const control* right) { return left->name() < right->name(); });
    return found;
}

}  // namespace

void tooltip_store::save_tooltips() {
    std::unordered_map<const control*, std::string> kept;
    if (main_.state.tips_on == 0)
        for (std::size_t i = 0; i < controls_.size(); ++i) kept[controls_[i]] = std::move(tip_store_[i]);
    controls_ = by_name(main_);
    if (const form_model* window = main_.child("目录选择"))
        for (control* each : by_name(*window))
            if (!each->tooltip.empty() || kept.count(each) != 0) controls_.push_back(each);
    tip_store_.clear();
    for (const control* each : controls_) {
        const auto before = kept.find(each);
        const bool is_off = each->tooltip.empty() && before != kept.end();
        tip_store_.push_back(is_off ? before->second : each->tooltip);
    }
}

void tooltip_store::tooltiphelp_true() {
    for (std::size_t i = 0; i < controls_.size(); ++i) controls_[i]->tooltip = tip_store_[i];
}

void tooltip_store::tooltiphelp_false() {
    for (control* each : controls_) each->tooltip.clear();
}

void tooltip_store::start() {
    save_tooltips();
    const bool on = main_.state.tip_help_on != 0;
    main_.state.tips_on = on ? -1 : 0;
    if (on)
        tooltiphelp_true();
    else
        tooltiphelp_false();
}

handler_table tooltip_store::handlers() {
    return {
        {"save_tooltips", [this](Tavrel&) { save_tooltips(); }},
        {"tooltiphelp_true", [this](Tavrel&) { tooltiphelp_true(); }},
        {"tooltiphelp_false", [this](Tavrel&) { tooltiphelp_false(); }},
    };
}

}  // namespace corvane
