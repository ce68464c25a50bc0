#!/bin/sh
# Starts the driver of headless sessions; everything it needs stands beside it.
home=$(dirname "$(readlink -f "$0")")/..
# The engine writes remarks on standard output. The two streams change places on the way in, and the driver's
# results on the way out, so that remarks do not mix with results.
exec java -Xshare:auto -XX:TieredStopAtLevel=1 -XX:+UseSerialGC -Djava.library.path="$home/lib" -Dkvx.crossed=true \
  -cp "$home/java/kvx-front-end.jar" ui.data.kvx.drive.Drive "$@" 3>&1 1>&2 2>&3 3>&-
