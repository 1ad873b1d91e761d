// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/FileDescriptor.h"
#include "simulator/UsbDescriptors.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace nubo::simulator {

/// Where the kernel keeps what makes a gadget. Tests have folders of their own.
struct GadgetPlaces {
    std::filesystem::path configfs = "/sys/kernel/config";
    std::filesystem::path controllers = "/sys/class/udc";
    std::filesystem::path run = "/run/nubo-camera-simulator";
};

/// A USB gadget of one FunctionFS function, in the kernel's configfs, on one device controller.
///
/// The controller is locked for as long as the object lives, so that a gadget which is found there
/// is left from a run that was killed: it is taken away first. Functions return an empty text, or
/// in one line what is missing and what to do.
class GadgetSetup {
public:
    explicit GadgetSetup(GadgetPlaces places = {}) : m_places(std::move(places)) {}
    /// Takes the gadget away.
    ~GadgetSetup();
    GadgetSetup(const GadgetSetup&) = delete;
    GadgetSetup& operator=(const GadgetSetup&) = delete;

    /// Makes the gadget, unbound. An empty name stands for the first controller that is free.
    std::string create(const std::string& controller);

    const std::string& controller() const { return m_controller; }
    /// The folder of ep0, ep1 and so on; there after create().
    std::filesystem::path endpoints() const { return m_places.run / m_controller; }

    /// What the host reads when it is bound the next time; texts in Latin-1.
    std::string describe(const DeviceDescription& description, std::string_view serialNumber);

    /// Plugs in, once the function has got its descriptors.
    std::string bind();
    /// Pulls the cable; without effect when it is not plugged in.
    void unbind();

private:
    std::string chooseController(const std::string& wanted);
    std::string lockController(const std::string& controller);
    std::string makeGadget();
    std::string mountFunction();
    void removeGadget();
    std::filesystem::path gadget() const;
    std::filesystem::path function() const;

    GadgetPlaces m_places;
    std::string m_controller;
    FileDescriptor m_lock;
};

}  // namespace nubo::simulator
