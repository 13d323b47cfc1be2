<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>ButtonMonitorPage</name>
    <message>
        <source>Monitor</source>
        <translation>监控</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>序号</translation>
    </message>
    <message>
        <source>ParameterName</source>
        <translation>参数名称</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>数值</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>功率</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>频率</translation>
    </message>
    <message>
        <source>Duty (%)</source>
        <translation>占空比(%)</translation>
    </message>
    <message>
        <source>Wire Speed</source>
        <translation>焊丝速度</translation>
    </message>
    <message>
        <source>Weld speed (mm/s)</source>
        <translation>焊接速度(mm/s)</translation>
    </message>
</context>
<context>
    <name>CharacteristicsCurvePage</name>
    <message>
        <source>Not configured</source>
        <translation>未配置</translation>
    </message>
    <message>
        <source>Validation failed,The table requires at least two rows of data!</source>
        <translation>校验失败,表格至少包含两行数据!</translation>
    </message>
    <message>
        <source>The data in line %1 must be greater than the data in row %2!</source>
        <translation>保存失败，第 %1 行的数据必须大于 %2 的数据。</translation>
    </message>
    <message>
        <source>Saved successfully</source>
        <translation>保存成功</translation>
    </message>
    <message>
        <source>Save failed. Please check the parameter configuration.</source>
        <translation>保存失败，请检查参数配置</translation>
    </message>
    <message>
        <source>Cancel successful</source>
        <translation>取消成功</translation>
    </message>
    <message>
        <source>Laser Power</source>
        <translation>激光功率</translation>
    </message>
    <message>
        <source>Power(W)</source>
        <translation>功率(W)</translation>
    </message>
    <message>
        <source>Feeding Speed</source>
        <translation>送丝速度</translation>
    </message>
    <message>
        <source> Feed Speed(mm/s)</source>
        <translation>送丝速度(mm/s)</translation>
    </message>
    <message>
        <source>PWM Frequency</source>
        <translation>PWM 频率</translation>
    </message>
    <message>
        <source>Frequency(Hz)</source>
        <translation>频率(Hz)</translation>
    </message>
    <message>
        <source>PWM Duty Cycle</source>
        <translation>PWM 占空比</translation>
    </message>
    <message>
        <source>DutyCycle(%)</source>
        <translation>占空比(%)</translation>
    </message>
    <message>
        <source>Node</source>
        <translation>节点</translation>
    </message>
    <message>
        <source>GO/AO/Reg</source>
        <translation>GO/AO/Reg</translation>
    </message>
    <message>
        <source>Node Number:</source>
        <translation>节点数:</translation>
    </message>
    <message>
        <source>Compute</source>
        <translation>计算</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
</context>
<context>
    <name>LaserWeldPage</name>
    <message>
        <source>Weld Setup</source>
        <translation>焊接设置</translation>
    </message>
    <message>
        <source>Parmeter Setting</source>
        <translation>焊接设置</translation>
    </message>
    <message>
        <source>Weld I/O</source>
        <translation>焊接 I/O</translation>
    </message>
    <message>
        <source>Soldering I/O</source>
        <translation>焊接I/O</translation>
    </message>
    <message>
        <source>Char. Curve</source>
        <translation>特性曲线</translation>
    </message>
    <message>
        <source>Characteristic curves</source>
        <translation>特性曲线</translation>
    </message>
    <message>
        <source>Weld Data</source>
        <translation>焊接参数</translation>
    </message>
    <message>
        <source>Welding Parameters</source>
        <translation>焊接参数</translation>
    </message>
    <message>
        <source>Laser Tracking</source>
        <translation>激光跟踪</translation>
    </message>
</context>
<context>
    <name>RLCustomInsertWidget</name>
    <message>
        <source>Insert</source>
        <translation>插入</translation>
    </message>
</context>
<context>
    <name>RLLaserOnInsertWidget</name>
    <message>
        <source>Sched:</source>
        <translation>工艺号</translation>
    </message>
    <message>
        <source>Start mode:</source>
        <translation>启动方式</translation>
    </message>
    <message>
        <source>In-place wait(ms):</source>
        <translation>原地出光等待(ms)</translation>
    </message>
</context>
<context>
    <name>RLParaSetInsertWidget</name>
    <message>
        <source>LsDataID: </source>
        <translation>工艺号</translation>
    </message>
    <message>
        <source>Ramp Type: </source>
        <translation>渐变模式</translation>
    </message>
    <message>
        <source>Time(ms): </source>
        <translation>渐变时间(ms)</translation>
    </message>
</context>
<context>
    <name>RlLaserWeldDefine</name>
    <message>
        <source>Welding start instruction
1. LaserOn(&quot;LsDatax&quot;), normal
2. LaserOn(&quot;LsDatax&quot;, Time), spot weld</source>
        <translation>焊接开始指令
1. LaserOn(&quot;LsDatax&quot;)，常规
2. LaserOn(&quot;LsDatax&quot;, Time)，点焊</translation>
    </message>
    <message>
        <source>Welding end instruction
LaserOff(), no parameters</source>
        <translation>焊接结束指令
LaserOff()，无参数</translation>
    </message>
    <message>
        <source>Parameter switch instruction
1. LsParaSet(&quot;LsData1&quot;), no ramp
2. LsParaSet(&quot;LsData1&quot;, &quot;Time&quot;, value), time ramp
3. LsParaSet(&quot;LsData1&quot;, &quot;Pos&quot;), position ramp</source>
        <translation>参数切换指令
1. LsParaSet(&quot;LsData1&quot;)，无渐变
2. LsParaSet(&quot;LsData1&quot;, &quot;Time&quot;, value)，时间渐变
3. LsParaSet(&quot;LsData1&quot;, &quot;Pos&quot;)，位置渐变</translation>
    </message>
    <message>
        <source>Wire feed instruction
LsWireFwd(speed, time)</source>
        <translation>送丝指令
LsWireFwd(speed, time)</translation>
    </message>
    <message>
        <source>Wire feed speed [1-100](mm/s):</source>
        <translation>送丝速度[1-100](mm/s)</translation>
    </message>
    <message>
        <source>Wire feed time [1-10000](ms):</source>
        <translation>送丝时间[1-10000](ms)</translation>
    </message>
    <message>
        <source>Wire retract instruction
LsWireBwd(speed, time)</source>
        <translation>退丝指令
LsWireBwd(speed, time)</translation>
    </message>
    <message>
        <source>Wire feed back speed [1-100](mm/s):</source>
        <translation>退丝速度[1-100](mm/s)</translation>
    </message>
    <message>
        <source>Wire feed back time [1-10000](ms):</source>
        <translation>退丝时间[1-10000](ms)</translation>
    </message>
    <message>
        <source>Parameter match enable instruction
LsParaMatch(&quot;PowerDatax&quot;)</source>
        <translation>参数匹配启用指令
LsParaMatch(&quot;PowerDatax&quot;)</translation>
    </message>
    <message>
        <source>Sched:</source>
        <translation>工艺号</translation>
    </message>
    <message>
        <source>Parameter match disable instruction
LsParaMatchOff(), no parameters</source>
        <translation>参数匹配关闭指令
LsParaMatchOff()，无参数</translation>
    </message>
    <message>
        <source>Linear welding motion instruction</source>
        <translation>直线焊接运动指令</translation>
    </message>
    <message>
        <source>Arc welding motion instruction</source>
        <translation>圆弧焊接运动指令</translation>
    </message>
    <message>
        <source>Full circle welding motion instruction</source>
        <translation>整圆焊接运动指令</translation>
    </message>
    <message>
        <source>Laser Weld Ins</source>
        <translation>激光焊指令</translation>
    </message>
</context>
<context>
    <name>SetUpPointWidget</name>
    <message>
        <source>Euler(°): </source>
        <translation>欧拉角(°): </translation>
    </message>
    <message>
        <source>Position(mm): </source>
        <translation>位置(mm): </translation>
    </message>
</context>
<context>
    <name>WMoveCFInsertWidget</name>
    <message>
        <source>AuxPoint1(robtarget): </source>
        <translation>辅助点1(robtarget): </translation>
    </message>
    <message>
        <source>AuxPoint2(robtarget): </source>
        <translation>辅助点2(robtarget): </translation>
    </message>
    <message>
        <source>Tool(T): </source>
        <translation>工具(T): </translation>
    </message>
    <message>
        <source>Wobj(W): </source>
        <translation>工件(W): </translation>
    </message>
    <message>
        <source>Speed(V): </source>
        <translation>速度(V): </translation>
    </message>
    <message>
        <source>Zone(Z): </source>
        <translation>转弯区(Z): </translation>
    </message>
    <message>
        <source>RotType(rottype): </source>
        <translation>全圆姿态旋转模式(rottype): </translation>
    </message>
    <message>
        <source>RunDeg(rundeg): </source>
        <translation>全圆执行角度(rundeg): </translation>
    </message>
</context>
<context>
    <name>WMoveCFPropertyWidget</name>
    <message>
        <source>AuxPoint1(robtarget): </source>
        <translation>辅助点1(robtarget): </translation>
    </message>
    <message>
        <source>AuxPoint2(robtarget): </source>
        <translation>辅助点2(robtarget): </translation>
    </message>
    <message>
        <source>Tool(T): </source>
        <translation>工具(T): </translation>
    </message>
    <message>
        <source>Wobj(W): </source>
        <translation>工件(W): </translation>
    </message>
    <message>
        <source>Speed(V): </source>
        <translation>速度(V): </translation>
    </message>
    <message>
        <source>Zone(Z): </source>
        <translation>转弯区(Z): </translation>
    </message>
    <message>
        <source>RotType(rottype): </source>
        <translation>全圆姿态旋转模式(rottype): </translation>
    </message>
    <message>
        <source>RunDeg(rundeg): </source>
        <translation>全圆执行角度(rundeg): </translation>
    </message>
</context>
<context>
    <name>WMoveCInsertWidget</name>
    <message>
        <source>AuxPoint(robtarget): </source>
        <translation>辅助点1(robtarget): </translation>
    </message>
    <message>
        <source>TargetPoint(robtarget): </source>
        <translation>目标点(robtarget): </translation>
    </message>
    <message>
        <source>Tool(T): </source>
        <translation>工具(T): </translation>
    </message>
    <message>
        <source>Wobj(W): </source>
        <translation>工件(W): </translation>
    </message>
    <message>
        <source>Speed(V): </source>
        <translation>速度(V): </translation>
    </message>
    <message>
        <source>Zone(Z): </source>
        <translation>转弯区(Z): </translation>
    </message>
</context>
<context>
    <name>WMoveCPropertyWidget</name>
    <message>
        <source>AuxPoint(robtarget): </source>
        <translation>辅助点1(robtarget): </translation>
    </message>
    <message>
        <source>TargetPoint(robtarget): </source>
        <translation>目标点(robtarget): </translation>
    </message>
    <message>
        <source>Tool(T): </source>
        <translation>工具(T): </translation>
    </message>
    <message>
        <source>Wobj(W): </source>
        <translation>工件(W): </translation>
    </message>
    <message>
        <source>Speed(V): </source>
        <translation>速度(V): </translation>
    </message>
    <message>
        <source>Zone(Z): </source>
        <translation>转弯区(Z): </translation>
    </message>
</context>
<context>
    <name>WMoveLInsertWidget</name>
    <message>
        <source>TargetPoint(robtarget): </source>
        <translation>目标点(robtarget): </translation>
    </message>
    <message>
        <source>Tool(T): </source>
        <translation>工具(T): </translation>
    </message>
    <message>
        <source>Wobj(W): </source>
        <translation>工件(W): </translation>
    </message>
    <message>
        <source>Speed(V): </source>
        <translation>速度(V): </translation>
    </message>
    <message>
        <source>Zone(Z): </source>
        <translation>转弯区(Z): </translation>
    </message>
</context>
<context>
    <name>WMoveLPropertyWidget</name>
    <message>
        <source>TargetPoint(robtarget): </source>
        <translation>目标点(robtarget): </translation>
    </message>
    <message>
        <source>Tool(T): </source>
        <translation>工具(T): </translation>
    </message>
    <message>
        <source>Wobj(W): </source>
        <translation>工件(W): </translation>
    </message>
    <message>
        <source>Speed(V): </source>
        <translation>速度(V): </translation>
    </message>
    <message>
        <source>Zone(Z): </source>
        <translation>转弯区(Z): </translation>
    </message>
</context>
<context>
    <name>WeldSettingPage</name>
    <message>
        <source>Enable:</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>Laser unit</source>
        <translation>激光器</translation>
    </message>
    <message>
        <source>Laser power</source>
        <translation>激光功率</translation>
    </message>
    <message>
        <source>Laser detect time</source>
        <translation>出光检测时间</translation>
    </message>
    <message>
        <source>Laser check out time</source>
        <translation>出光检出时间</translation>
    </message>
    <message>
        <source>Communication mode</source>
        <translation>通讯方式</translation>
    </message>
    <message>
        <source>Analogue</source>
        <translation>模拟量</translation>
    </message>
    <message>
        <source>Bus</source>
        <translation>总线</translation>
    </message>
    <message>
        <source>Assist Gas</source>
        <translation>保护气</translation>
    </message>
    <message>
        <source>Gas on advance time</source>
        <translation>提前送气时间</translation>
    </message>
    <message>
        <source>Gas off delay time</source>
        <translation>滞后停气时间</translation>
    </message>
    <message>
        <source>Gas detect  time</source>
        <translation>气体检测时间</translation>
    </message>
    <message>
        <source>Gas purge time</source>
        <translation>手动送气时间</translation>
    </message>
    <message>
        <source>Restart function</source>
        <translation>再启动功能</translation>
    </message>
    <message>
        <source>Overlap Distance</source>
        <translation>重叠距离</translation>
    </message>
    <message>
        <source>Return speed</source>
        <translation>回退速度</translation>
    </message>
    <message>
        <source>Wire Feeder</source>
        <translation>送丝机</translation>
    </message>
    <message>
        <source>Feeding mode</source>
        <translation>送丝方式</translation>
    </message>
    <message>
        <source>Wire Feeding + Retraction</source>
        <translation>送丝 + 退丝</translation>
    </message>
    <message>
        <source>Wire Feeding + Direction</source>
        <translation>送丝 + 方向</translation>
    </message>
    <message>
        <source>ProcessID</source>
        <translation>工艺号</translation>
    </message>
    <message>
        <source>Max. speed</source>
        <translation>最大速度</translation>
    </message>
    <message>
        <source>Manual feed forward speed</source>
        <translation>手动送丝速度</translation>
    </message>
    <message>
        <source>Manual feed backward speed</source>
        <translation>手动退丝速度</translation>
    </message>
    <message>
        <source>Wire feed check time</source>
        <translation>送丝检测时间</translation>
    </message>
    <message>
        <source>Wire stick detect function</source>
        <translation>粘丝检测功能</translation>
    </message>
    <message>
        <source>Detect duration</source>
        <translation>检测时长</translation>
    </message>
    <message>
        <source>Trigger signal | DO</source>
        <translation>触发信号 | DO</translation>
    </message>
    <message>
        <source>Wire stick FBK| DI</source>
        <translation>粘丝反馈 | DI</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Saved successfully</source>
        <translation>保存成功</translation>
    </message>
    <message>
        <source>Save failed. Please check the parameter configuration.</source>
        <translation>保存失败，请检查参数配置</translation>
    </message>
    <message>
        <source>The detected time of the light output is later than the light output inspection time; saving failed!</source>
        <translation>出光检出时间大于出光检测时间，保存失败！</translation>
    </message>
    <message>
        <source>Cancel successful</source>
        <translation>取消成功</translation>
    </message>
    <message>
        <source>Do not modify while powered on!</source>
        <translation>上电禁止修改激光焊接配置!</translation>
    </message>
    <message>
        <source>Laser weld startup faild!</source>
        <translation>激光焊接启动失败</translation>
    </message>
</context>
<context>
    <name>WeldioPage</name>
    <message>
        <source>I/O output</source>
        <translation>I/O 输出</translation>
    </message>
    <message>
        <source>NO.</source>
        <translation>序号</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Assign</source>
        <translation>分配</translation>
    </message>
    <message>
        <source>ENB/DIS</source>
        <translation>使能</translation>
    </message>
    <message>
        <source>I/O Input</source>
        <translation>I/O 输入</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Laser on</source>
        <translation>激光开启</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>功率</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>频率</translation>
    </message>
    <message>
        <source>Duty</source>
        <translation>占空比</translation>
    </message>
    <message>
        <source>Guide laser</source>
        <translation>红光</translation>
    </message>
    <message>
        <source>Assist Gas</source>
        <translation>保护气</translation>
    </message>
    <message>
        <source>Wire speed</source>
        <translation>送丝速度</translation>
    </message>
    <message>
        <source>Wire feed on</source>
        <translation>送丝开启</translation>
    </message>
    <message>
        <source>Wire back feed</source>
        <translation>退丝</translation>
    </message>
    <message>
        <source>Manual feed on</source>
        <translation>手动送丝</translation>
    </message>
    <message>
        <source>Manual feed BWD</source>
        <translation>手动退丝</translation>
    </message>
    <message>
        <source>Adhesion Detection Enable</source>
        <translation>粘丝检测使能</translation>
    </message>
    <message>
        <source>Descent signal</source>
        <translation>下降信号</translation>
    </message>
    <message>
        <source>Swing JOB</source>
        <translation>摆动 JOB</translation>
    </message>
    <message>
        <source>Process JOB</source>
        <translation>工艺 JOB</translation>
    </message>
    <message>
        <source>Laser power</source>
        <translation>激光功率</translation>
    </message>
    <message>
        <source>Laser feedback</source>
        <translation>出光反馈</translation>
    </message>
    <message>
        <source>Laser alarm</source>
        <translation>激光报警</translation>
    </message>
    <message>
        <source>Gas detect</source>
        <translation>气体检测</translation>
    </message>
    <message>
        <source>Wire speed feedback</source>
        <translation>送丝速度反馈</translation>
    </message>
    <message>
        <source>Wire feedback</source>
        <translation>送丝反馈</translation>
    </message>
    <message>
        <source>Wire feeder alarm</source>
        <translation>送丝机报警</translation>
    </message>
    <message>
        <source>Adhesion Detection Feedback</source>
        <translation>粘丝检测反馈</translation>
    </message>
    <message>
        <source>Welder Ready</source>
        <translation>焊机就绪</translation>
    </message>
    <message>
        <source>Cancel successful</source>
        <translation>取消成功</translation>
    </message>
    <message>
        <source>There is an empty port. Please check and reconfigure!</source>
        <translation>存在空白端口，请检查并重新配置!</translation>
    </message>
    <message>
        <source>Current status does not allow saving I/O configuration.</source>
        <translation>当前状态不允许保存 I/O 配置。</translation>
    </message>
    <message>
        <source>Save failed. No response from controller.</source>
        <translation>保存失败。控制器无响应。</translation>
    </message>
    <message>
        <source>Saved successfully</source>
        <translation>保存成功</translation>
    </message>
    <message>
        <source>Save failed. Please check the parameter configuration.</source>
        <translation>保存失败，请检查参数配置</translation>
    </message>
    <message>
        <source>writable register</source>
        <translation>可写寄存器</translation>
    </message>
    <message>
        <source>readable register</source>
        <translation>可读寄存器</translation>
    </message>
    <message>
        <source>Signal %1: register &quot;%2&quot; is invalid or has wrong read/write permission, expected %3.</source>
        <translation>信号 %1：寄存器「%2」不可用或读写权限不符，需要 %3。</translation>
    </message>
    <message>
        <source>Port %1 is already in use, save failed!</source>
        <translation>端口 %1 已经被占用，保存失败!</translation>
    </message>
</context>
<context>
    <name>pendix::Corvane</name>
    <message>
        <source>Laser Welding</source>
        <translation>激光焊接</translation>
    </message>
    <message>
        <source>Work mode</source>
        <translation>工作模式</translation>
    </message>
    <message>
        <source>Wiring</source>
        <translation>送丝</translation>
    </message>
    <message>
        <source>ProtectGas</source>
        <translation>保护气</translation>
    </message>
    <message>
        <source>Retract Wire</source>
        <translation>退丝</translation>
    </message>
    <message>
        <source>Red Light</source>
        <translation>红光</translation>
    </message>
    <message>
        <source>Insufficient user permissions!</source>
        <translation>用户权限不足!</translation>
    </message>
    <message>
        <source>Switch to VirtualWelding</source>
        <translation>切换为非焊接模式</translation>
    </message>
    <message>
        <source>Switch to RealWdlding</source>
        <translation>切换为焊接模式</translation>
    </message>
    <message>
        <source>Switch work mode failed</source>
        <translation>切换工作模式失败</translation>
    </message>
    <message>
        <source>Feed wire successfully</source>
        <translation>送丝成功</translation>
    </message>
    <message>
        <source>Feed wire failed. Please check logs.</source>
        <translation>送丝失败</translation>
    </message>
    <message>
        <source>Retract wire successfully</source>
        <translation>退丝成功</translation>
    </message>
    <message>
        <source>Retract wire failed. Please check logs.</source>
        <translation>退丝失败</translation>
    </message>
    <message>
        <source>Open gas successfully</source>
        <translation>手动送气成功</translation>
    </message>
    <message>
        <source>Open gas failed. Please check logs.</source>
        <translation>手动送气失败</translation>
    </message>
</context>
<context>
    <name>pendix::RLLaserOnInsertWidget</name>
    <message>
        <source>Normal</source>
        <translation>常规</translation>
    </message>
    <message>
        <source>Spot weld</source>
        <translation>点焊</translation>
    </message>
</context>
</TS>
