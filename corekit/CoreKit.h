// Everything that the core library offers. A program that minds its build time includes what it uses instead.
#pragma once
