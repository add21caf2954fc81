#!/usr/bin/env python3
"""try.py FOLDER: runs the recipe's steps with stand-ins for Conan's classes, into FOLDER/package.

The sources that the recipe exports are copied for real, and CMake gets what the recipe hands to it.
"""
import importlib.util
import os
import shutil
import subprocess
import sys
import types


class CMakeToolchain:
    def __init__(self, recipe):
        self.cache_variables = recipe.given = {}

    def generate(self):
        pass


class CMakeDeps:
    def __init__(self, recipe):
        self.names = recipe.names = {}

    def set_property(self, package, name, value):
        self.names[package, name] = value

    def generate(self):
        pass


class CMake:
    def __init__(self, recipe):
        self.recipe = recipe

    def configure(self):
        recipe = self.recipe
        given = [f"-D{name}={'ON' if value else 'OFF'}" for name, value in recipe.given.items()]
        subprocess.run(["cmake", "-S", recipe.export_sources_folder, "-B", recipe.build_folder, "-G", "Ninja",
                        "-DCMAKE_BUILD_TYPE=Debug", f"-DCMAKE_INSTALL_PREFIX={recipe.package_folder}", *given], check=True)

    def build(self):
        subprocess.run(["cmake", "--build", self.recipe.build_folder], check=True)

    def install(self):
        subprocess.run(["cmake", "--install", self.recipe.build_folder], check=True)


def copy(_recipe, pattern, source, target):
    if pattern == "*":
        shutil.copytree(source, target)
    else:
        os.makedirs(target, exist_ok=True)
        shutil.copy(os.path.join(source, pattern), target)


class Recorded:
    """Takes every attribute, as cpp_info does."""

    def __init__(self):
        self.components = {}
        self.properties = {}

    def set_property(self, name, value):
        self.properties[name] = value


def module(name, **members):
    made = types.ModuleType(name)
    vars(made).update(members)
    sys.modules[name] = made


module("conan", ConanFile=object)
module("conan.tools")
module("conan.tools.cmake", CMake=CMake, CMakeDeps=CMakeDeps, CMakeToolchain=CMakeToolchain,
       cmake_layout=lambda recipe: None)
module("conan.tools.files", copy=copy)
folder = os.path.abspath(sys.argv[1])
here = os.path.dirname(os.path.abspath(__file__))
module_spec = importlib.util.spec_from_file_location("conanfile", os.path.join(here, "conanfile.py"))
loaded = importlib.util.module_from_spec(module_spec)
module_spec.loader.exec_module(loaded)
recipe = loaded.VEXMELKConfigurationRecipe()
recipe.recipe_folder = here
recipe.export_sources_folder = os.path.join(folder, "sources")
recipe.build_folder = os.path.join(folder, "build")
recipe.package_folder = os.path.join(folder, "package")
recipe.settings = types.SimpleNamespace(os="Linux")
recipe.options = types.SimpleNamespace(**recipe.default_options)
recipe.cpp_info = Recorded()
recipe.cpp_info.components = {"library": Recorded(), "insight": Recorded()}
for step in ("export_sources", "config_options", "layout", "generate", "build", "package", "package_info"):
    getattr(recipe, step)()
for component in recipe.cpp_info.components.values():
    for library in component.libs:
        assert any(library in name for _, _, names in os.walk(recipe.package_folder) for name in names), library
    for include in component.includedirs:
        assert os.path.isdir(os.path.join(recipe.package_folder, include)), include
