"""Conan 2 recipe, to be run in the sources: conan create packaging/conan"""
import os

from conan import ConanFile
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy


class VEXMELKConfigurationRecipe(ConanFile):
    name = "vexmelkconfiguration"
    version = "1.0.0"
    license = "MIT"
    description = "The configuration layer of a vehicle-architecture checking application"
    package_type = "library"
    settings = "os", "compiler", "build_type", "arch"
    options = {"shared": [True, False], "fPIC": [True, False]}
    default_options = {"shared": False, "fPIC": True}
    requires = "expat/[>=2.8.4 <3]", "utf8proc/[>=2.8 <3]"

    @property
    def _root(self):
        return os.path.join(self.recipe_folder, "..", "..")

    def export_sources(self):
        for folder in ("cmake", "configuration", "core", "description", "document", "host", "include", "insight",
                       "occupant", "packaging", "safety", "vision"):
            copy(self, "*", os.path.join(self._root, folder), os.path.join(self.export_sources_folder, folder))
        for file in ("CMakeLists.txt", "LICENSE", "CHANGELOG.md", "SECURITY.md"):
            copy(self, file, self._root, self.export_sources_folder)

    def config_options(self):
        if self.settings.os == "Windows":
            del self.options.fPIC

    def layout(self):
        cmake_layout(self)

    def generate(self):
        dependencies = CMakeDeps(self)
        dependencies.set_property("expat", "cmake_file_name", "EXPAT")
        dependencies.set_property("expat", "cmake_target_name", "EXPAT::EXPAT")
        dependencies.set_property("utf8proc", "cmake_file_name", "Utf8proc")
        dependencies.set_property("utf8proc", "cmake_target_name", "utf8proc::utf8proc")
        dependencies.generate()
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["BUILD_SHARED_LIBS"] = bool(self.options.shared)
        toolchain.cache_variables["MELK_TOOL"] = False
        toolchain.cache_variables["MELK_TESTS"] = False
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()

    def package_info(self):
        self.cpp_info.set_property("cmake_file_name", "VEXMELKConfiguration")
        self.cpp_info.set_property("pkg_config_name", "VEXMELKConfiguration")
        library = self.cpp_info.components["library"]
        library.set_property("cmake_target_name", "VEXMELKConfiguration::VEXMELKConfiguration")
        library.libs = ["VEXMELKConfiguration"]
        library.includedirs = [os.path.join("include", "VEXMELKConfiguration")]
        library.requires = ["expat::expat", "utf8proc::utf8proc"]
        if not self.options.shared:
            library.defines = ["VEXMELKConfiguration_STATIC"]
        if self.settings.os == "Linux":
            library.system_libs = ["dl"]
        insight = self.cpp_info.components["insight"]
        insight.set_property("cmake_target_name", "VEXMELKConfiguration::VEXMELKInsight")
        insight.libs = ["VEXMELKInsight"]
        insight.includedirs = library.includedirs
        insight.requires = ["library"]
