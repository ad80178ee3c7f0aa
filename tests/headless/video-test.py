#!/usr/bin/python3
"""Has another program, y4mtoppm of mjpegtools, decode a video of kinetarium-headless, and compares every pixel with the
pictures of the same iterations: video-test.py PROGRAM"""

import io
import os
import subprocess
import sys
import tempfile

import numpy
from PIL import Image

PROGRAM = os.path.abspath(sys.argv[1])
WORLD = ["--seed", "5", "--atoms", "300", "--width", "321", "--height", "199", "--background", "203040", "--quiet"]
ITERATIONS = [0, 4, 8, 12]

# Each of the three components is off by at most half a step. In red, green and blue this makes at most 1.7 steps, and
# the decoder rounds again.
TOLERANCE = 2


def run(*arguments):
    return subprocess.run([PROGRAM, *arguments], check=True, stdout=subprocess.PIPE, stderr=subprocess.PIPE).stdout


def decode(video):
    """The pictures of a video."""
    images = subprocess.run(["y4mtoppm"], input=video, check=True, stdout=subprocess.PIPE, stderr=subprocess.PIPE).stdout
    stream = io.BytesIO(images)
    pictures = []
    while stream.tell() < len(images):
        assert stream.readline() == b"P6\n"
        width, height, largest = (int(word) for word in stream.readline().split())
        assert largest == 255
        pixels = numpy.frombuffer(stream.read(3 * width * height), dtype=numpy.uint8)
        pictures.append(pixels.reshape(height, width, 3).astype(int))
    return pictures


def picture_after(iterations):
    run(*WORLD, "--iterations", str(iterations), "--picture", "gas.png")
    return numpy.asarray(Image.open("gas.png").convert("RGB")).astype(int)


def main():
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        video = run(*WORLD, "--iterations", "13", "--video", "-", "--video-every", "4")
        pictures = decode(video)
        assert len(pictures) == len(ITERATIONS), f"{len(pictures)} pictures"
        for decoded, iteration in zip(pictures, ITERATIONS):
            expected = picture_after(iteration)
            assert decoded.shape == expected.shape, f"{decoded.shape} instead of {expected.shape}"
            difference = abs(decoded - expected).max()
            assert difference <= TOLERANCE, f"iteration {iteration}: a pixel differs by {difference}"
        assert abs(pictures[0] - pictures[1]).max() > TOLERANCE, "the pictures do not differ from each other"
        os.chdir("/")
    print("y4mtoppm shows the pictures")


main()
