<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>mirolt::Mirolt</name>
    <message>
        <source>Seam Tracking</source>
        <translation>焊缝跟踪</translation>
    </message>
</context>
<context>
    <name>mirolt::ProfileView</name>
    <message>
        <source>Sensor off</source>
        <translation>传感器已关闭</translation>
    </message>
    <message>
        <source>%1 mm grid</source>
        <translation>网格 %1 mm</translation>
    </message>
</context>
<context>
    <name>mirolt::SeamTracking</name>
    <message>
        <source>Insufficient user permissions!</source>
        <translation>用户权限不足!</translation>
    </message>
    <message>
        <source>Switch the sensor on first</source>
        <translation>请先打开传感器</translation>
    </message>
    <message>
        <source>Seam tracking started</source>
        <translation>焊缝跟踪已启动</translation>
    </message>
    <message>
        <source>Seam tracking stopped</source>
        <translation>焊缝跟踪已停止</translation>
    </message>
</context>
<context>
    <name>mirolt::TrackingPage</name>
    <message>
        <source>Butt joint</source>
        <translation>对接接头</translation>
    </message>
    <message>
        <source>Lap joint</source>
        <translation>搭接接头</translation>
    </message>
    <message>
        <source>Fillet joint</source>
        <translation>角焊缝</translation>
    </message>
    <message>
        <source>Joint</source>
        <translation>接头形式</translation>
    </message>
    <message>
        <source>Gain</source>
        <translation>增益</translation>
    </message>
    <message>
        <source>Offset y</source>
        <translation>Y 向偏移</translation>
    </message>
    <message>
        <source>Offset z</source>
        <translation>Z 向偏移</translation>
    </message>
    <message>
        <source>Switch sensor off</source>
        <translation>关闭传感器</translation>
    </message>
    <message>
        <source>Switch sensor on</source>
        <translation>打开传感器</translation>
    </message>
    <message>
        <source>Stop tracking</source>
        <translation>停止跟踪</translation>
    </message>
    <message>
        <source>Start tracking</source>
        <translation>启动跟踪</translation>
    </message>
    <message>
        <source>The sensor is off.</source>
        <translation>传感器已关闭。</translation>
    </message>
    <message>
        <source>The sensor is on, not tracking.</source>
        <translation>传感器已打开，未跟踪。</translation>
    </message>
    <message>
        <source>Deviation y %1, z %2 mm</source>
        <translation>偏差 Y %1，Z %2 mm</translation>
    </message>
</context>
</TS>
