"""The module is built already; all that is said here is that the wheel is for one machine and one Python."""

from setuptools import Distribution, setup


class BuiltDistribution(Distribution):
    def has_ext_modules(self):
        return True


setup(distclass=BuiltDistribution)
